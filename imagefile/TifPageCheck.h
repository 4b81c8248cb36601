#pragma once

#include "imagefile/TifPage.h"

namespace vireo {

/// Whether a page whose entries are read can be decoded: a compression that is known, a size, a
/// strip for every row, rows within the limit, and a file that is not far too short for it.
ImageResult CheckTifPage(const TifPage& page, std::uint64_t fileBytes);

} // namespace vireo
