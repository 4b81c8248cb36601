#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace vireo {

/// A pixel of a picture that a test has found something at; 0-based, lines counted from the top.
struct PictureMark {
    std::int64_t column = 0;
    std::int64_t line = 0;
};

/// The first picture of a TIFF file, with what a test has found in it.
struct MarkedPicture {
    std::filesystem::path file;
    std::vector<PictureMark> marks;
    PictureMark middle; ///< The pixel that is brought to the middle of the view at first.
};

} // namespace vireo
