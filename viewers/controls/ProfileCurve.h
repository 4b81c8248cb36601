#pragma once

#include "viewers/controls/LinePyramid.h"
#include "viewers/controls/ProfileView.h"

#include <cstdint>
#include <span>
#include <vector>

namespace vireo {

/// A curve over more samples than the drawing has columns: the values that each column has to
/// cover. Columns lie on a fixed grid of the line and not of the view, so that a curve keeps its
/// shape while it is panned.
struct CurveColumns {
    double firstPixel = 0.0; ///< Where the first column begins on the line.
    double pixelsPerColumn = 1.0;
    std::vector<SampleRange> columns; ///< Empty ranges where the line has no samples.
};

/// Sums a stretch of a line up to columns of `view.length / columnCount` pixels each. Each column
/// includes the first sample of the next, so that the curve has no gaps, and every sample in view
/// lies in one: no spike is lost. Takes a time that grows with the columns, not the samples.
CurveColumns SumUpColumns(std::span<const std::uint8_t> samples, const LinePyramid& pyramid,
    const ProfileView& view, int columnCount);

/// The samples that a curve through single samples needs: those in view and one on either side.
struct CurveSamples {
    std::int64_t first = 0;
    std::span<const std::uint8_t> samples;
};
CurveSamples SamplesInView(std::span<const std::uint8_t> samples, const ProfileView& view);

} // namespace vireo
