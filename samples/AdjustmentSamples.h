#pragma once

#include "samples/SampleFile.h"

#include <vector>

namespace vireo {

/// The samples of the adjustment viewers: a profile, a picture, and data that the header's sizes do
/// not explain.
std::vector<SampleFile> AdjustmentSamples();

} // namespace vireo
