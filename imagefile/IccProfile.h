#pragma once

#include "imagefile/CIccProfileReader.h"
#include "imagefile/ImageResult.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vireo {

/// Longer profiles are refused.
inline constexpr std::uint32_t kMostIccProfileBytes = 64 * 1024 * 1024;

/// Opens a profile, reads it whole and closes it. CantOpenIcc when it cannot be opened or ends too
/// early, TifOutOfMemory when it is too large, InvalidTiffArguments when it is no ICC profile;
/// `reason` takes what the result's text leaves open.
ImageResult ReadIccProfile(
    CIccProfileReader& profile, std::vector<std::uint8_t>& bytes, std::string& reason);

} // namespace vireo
