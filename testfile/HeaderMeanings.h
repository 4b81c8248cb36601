#pragma once

#include "testfile/HeaderKeys.h"

#include <string>

namespace vireo {

/// What a common key stands for and what its value means, with units: "Scan width: 36.00 in,
/// 914.4 mm". Windows-1252.
std::string MeaningOf(const HeaderKey& key);

} // namespace vireo
