#pragma once

#include "viewers/controls/LinePyramid.h"
#include "viewers/controls/ProfileView.h"
#include "viewers/controls/StraightLine.h"

#include <QColor>

#include <cstdint>
#include <span>

class QPainter;

namespace vireo {

/// A line of samples with its summary; not owned.
template <typename Value>
struct TraceOf {
    std::span<const Value> samples;
    const RangePyramid<Value>& pyramid;
};
using TraceSamples = TraceOf<std::uint8_t>;
using WideTraceSamples = TraceOf<std::int32_t>;
using ValueTrace = TraceOf<double>;

/// Draws the stretch of a line that a scale has in view as a curve. Where a column of the device
/// covers several samples it is drawn from their lowest to their highest; closer in the curve runs
/// from sample to sample, and closer still the samples are dotted. Takes a time that grows with the
/// width, not with the samples. The caller clips to the plot area.
void DrawTrace(
    QPainter& painter, const ProfileScale& scale, const TraceSamples& trace, const QColor& colour);
void DrawTrace(QPainter& painter, const ProfileScale& scale, const WideTraceSamples& trace,
    const QColor& colour);

/// A curve of values, which may lie anywhere. Where one is no number the curve has a gap.
struct StyledTrace {
    ValueTrace trace;
    QColor colour;
    LineStyle style = LineStyle::Solid;
};

/// The same for curves of values, later ones over earlier ones.
void DrawTraces(QPainter& painter, const ProfileScale& scale, std::span<const StyledTrace> traces);

} // namespace vireo
