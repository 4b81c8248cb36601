#pragma once

#include "viewers/controls/LinePyramid.h"
#include "viewers/controls/ProfileView.h"

#include <cstdint>
#include <span>
#include <type_traits>
#include <vector>

namespace vireo {

/// A curve over more samples than the drawing has columns: the values that each column has to
/// cover. Columns lie on a fixed grid of the line and not of the view, so that a curve keeps its
/// shape while it is panned.
template <typename Value>
struct CurveColumnsOf {
    double firstPixel = 0.0; ///< Where the first column begins on the line.
    double pixelsPerColumn = 1.0;
    std::vector<ValueRange<Value>> columns; ///< Empty ranges where the line has no samples.
};
using CurveColumns = CurveColumnsOf<std::uint8_t>;

/// Sums a stretch of a line up to columns of `view.length / columnCount` pixels each. Each column
/// includes the first sample of the next, so that the curve has no gaps, and every sample in view
/// lies in one: no spike is lost. Takes a time that grows with the columns, not the samples.
template <typename Value>
CurveColumnsOf<Value> SumUpColumns(std::span<const std::type_identity_t<Value>> samples,
    const RangePyramid<Value>& pyramid, const ProfileView& view, int columnCount);
extern template CurveColumnsOf<std::uint8_t> SumUpColumns(
    std::span<const std::uint8_t>, const RangePyramid<std::uint8_t>&, const ProfileView&, int);
extern template CurveColumnsOf<std::int32_t> SumUpColumns(
    std::span<const std::int32_t>, const RangePyramid<std::int32_t>&, const ProfileView&, int);
extern template CurveColumnsOf<double> SumUpColumns(
    std::span<const double>, const RangePyramid<double>&, const ProfileView&, int);

/// The same where there are more columns than samples: the straight lines from sample to sample,
/// each in the middle of its pixel, as far as each column has to cover them.
CurveColumnsOf<double> InterpolateColumns(
    std::span<const double> values, const ProfileView& view, int columnCount);

/// The samples that a curve through single samples needs: those in view and one on either side.
template <typename Value>
struct CurveSamplesOf {
    std::int64_t first = 0;
    std::span<const Value> samples;
};
using CurveSamples = CurveSamplesOf<std::uint8_t>;
CurveSamples SamplesInView(std::span<const std::uint8_t> samples, const ProfileView& view);
CurveSamplesOf<std::int32_t> SamplesInView(
    std::span<const std::int32_t> samples, const ProfileView& view);
CurveSamplesOf<double> ValuesInView(std::span<const double> values, const ProfileView& view);

} // namespace vireo
