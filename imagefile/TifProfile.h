#pragma once

#include "imagefile/ImageResult.h"
#include "imagefile/TifEntry.h"

#include <filesystem>

namespace vireo {

/// Copies the ICC profile that a page's entry holds into a file of its own, which is replaced by a
/// complete one or left as it was. Nothing is written where `iccFile` is empty. Returns
/// TifFormatError when the entry is of another type, CantReadTif when the profile goes beyond the
/// end of the TIFF file, CantOpenIcc or CantWriteIcc when it cannot be saved.
ImageResult CopyTifProfile(
    const TifBytes& bytes, const TifEntry& entry, const std::filesystem::path& iccFile);

} // namespace vireo
