#pragma once

#include "testfile/CameraDescription.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace vireo {

/// Where a camera begins in the lines of a picture.
struct CameraBoundary {
    char left = 'A';         ///< The camera whose last column is before the boundary.
    char right = 'B';        ///< The camera that begins at it.
    std::int64_t column = 0; ///< First column of the right one, 0-based.
};

/// The letter of the camera that a column is from, 'A' to 'H'; nothing behind the last camera.
/// Counts below 1 stand for cameras that are not there.
std::optional<char> CameraOfColumn(const CameraCounts& counts, std::int64_t column);

/// The boundaries between cameras that lie within a picture of `width` columns, from left to right.
std::vector<CameraBoundary> CameraBoundaries(const CameraCounts& counts, std::int64_t width);

} // namespace vireo
