#pragma once

#include "viewers/controls/ProfileLine.h"

#include <optional>

namespace vireo {

/// How far a target that lies on the scanner is off the middle of the scan: by how many
/// millimetres the margin at each side is wider (positive) or narrower than it would be with the
/// target in the middle. What one side has too much, the other lacks.
struct TargetDeviation {
    double leftMm = 0.0;
    double rightMm = 0.0;
};

/// Measures the bright target on a line by its outer edges in the shown plane; nothing where an
/// edge is not found or a pixel's width is not known.
std::optional<TargetDeviation> MeasureTargetDeviation(
    const ProfileLine& line, const ProfileCameras& cameras, ShownColour shown);

} // namespace vireo
