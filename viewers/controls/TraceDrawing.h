#pragma once

#include "viewers/controls/LinePyramid.h"
#include "viewers/controls/ProfileView.h"

#include <cstdint>
#include <span>

class QColor;
class QPainter;

namespace vireo {

/// A line of 8-bit samples with its summary; not owned.
struct TraceSamples {
    std::span<const std::uint8_t> samples;
    const LinePyramid& pyramid;
};

/// Draws the stretch of a line that a scale has in view as a curve. Where a column of the device
/// covers several samples it is drawn from their lowest to their highest; closer in the curve runs
/// from sample to sample, and closer still the samples are dotted. Takes a time that grows with the
/// width, not with the samples. The caller clips to the plot area.
void DrawTrace(
    QPainter& painter, const ProfileScale& scale, const TraceSamples& trace, const QColor& colour);

} // namespace vireo
