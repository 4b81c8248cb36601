#pragma once

#include "viewers/controls/ProfileLine.h"

#include <cstdint>
#include <optional>

namespace vireo {

/// The stretch of a line in view: pixels first <= i < first + length. Plain arithmetic, so that it
/// can be tested without a window.
struct ProfileView {
    double first = 0.0;
    double length = 0.0;
};

/// What lies under the cursor.
struct CursorReading {
    std::int64_t pixel = 0;           ///< 0-based in the line.
    std::optional<double> positionMm; ///< From the line's start, where the pixel pitch is known.
    std::optional<int> camera;        ///< 0 for A.
    int value = 0;                    ///< Of the shown plane; of green when all are shown.
};

} // namespace vireo
