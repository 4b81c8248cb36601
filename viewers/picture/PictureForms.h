#pragma once

#include "imagefile/ColorDepth.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace vireo {

/// A way to store a picture in a TIFF file, to be chosen when it is saved.
struct PictureForm {
    std::string_view name;
    std::uint16_t compression; ///< By its code in files.
    std::uint16_t predictor;   ///< 1 or 2.
};

/// The forms that pixels of a depth can have.
std::vector<PictureForm> PictureForms(ColorDepth depth);

} // namespace vireo
