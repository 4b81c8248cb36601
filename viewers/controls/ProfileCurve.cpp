#include "viewers/controls/ProfileCurve.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vireo {

template <typename Value>
CurveColumnsOf<Value> SumUpColumns(std::span<const std::type_identity_t<Value>> samples,
    const RangePyramid<Value>& pyramid, const ProfileView& view, int columnCount)
{
    CurveColumnsOf<Value> curve;
    if (columnCount <= 0 || view.length <= 0.0)
        return curve;
    curve.pixelsPerColumn = view.length / columnCount;
    const double firstColumn = std::floor(view.first / curve.pixelsPerColumn);
    curve.firstPixel = firstColumn * curve.pixelsPerColumn;
    // One more than fit, for the part of a column that the grid's start leaves over at the end.
    curve.columns.reserve(static_cast<std::size_t>(columnCount) + 1);
    const auto boundary = [&](int column) {
        return static_cast<std::int64_t>((firstColumn + column) * curve.pixelsPerColumn);
    };
    std::int64_t first = boundary(0);
    for (int column = 0; column <= columnCount; ++column) {
        const std::int64_t next = boundary(column + 1);
        curve.columns.push_back(pyramid.Range(samples, first, next + 1));
        first = next;
    }
    return curve;
}

template CurveColumnsOf<std::uint8_t> SumUpColumns(
    std::span<const std::uint8_t>, const RangePyramid<std::uint8_t>&, const ProfileView&, int);
template CurveColumnsOf<std::int32_t> SumUpColumns(
    std::span<const std::int32_t>, const RangePyramid<std::int32_t>&, const ProfileView&, int);
template CurveColumnsOf<double> SumUpColumns(
    std::span<const double>, const RangePyramid<double>&, const ProfileView&, int);

namespace {

/// The value of the lines through the samples at a place; no number where there is none.
double InterpolatedAt(std::span<const double> values, double place)
{
    const double index = std::floor(place - 0.5);
    if (index < 0.0 || index + 1.0 >= static_cast<double>(values.size()))
        return std::numeric_limits<double>::quiet_NaN();
    const auto left = static_cast<std::size_t>(index);
    return values[left] + (values[left + 1] - values[left]) * (place - 0.5 - index);
}

} // namespace

CurveColumnsOf<double> InterpolateColumns(
    std::span<const double> values, const ProfileView& view, int columnCount)
{
    CurveColumnsOf<double> curve;
    if (columnCount <= 0 || view.length <= 0.0)
        return curve;
    curve.pixelsPerColumn = view.length / columnCount;
    curve.firstPixel = view.first;
    curve.columns.resize(static_cast<std::size_t>(columnCount) + 1);
    double left = view.first;
    for (ValueRange<double>& range : curve.columns) {
        const double right = left + curve.pixelsPerColumn;
        range.Include(InterpolatedAt(values, left));
        range.Include(InterpolatedAt(values, right));
        // A sample within the column may be a peak of the line.
        for (double sample = std::ceil(left - 0.5); sample + 0.5 < right; sample += 1.0)
            if (sample >= 0.0 && sample < static_cast<double>(values.size()))
                range.Include(values[static_cast<std::size_t>(sample)]);
        left = right;
    }
    return curve;
}

namespace {

template <typename Value>
CurveSamplesOf<Value> InView(std::span<const Value> samples, const ProfileView& view)
{
    const auto length = static_cast<std::int64_t>(samples.size());
    const auto first =
        std::clamp<std::int64_t>(static_cast<std::int64_t>(std::floor(view.first)) - 1, 0, length);
    const auto end = std::clamp<std::int64_t>(
        static_cast<std::int64_t>(std::ceil(view.End())) + 1, first, length);
    return {first,
        samples.subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(end - first))};
}

} // namespace

CurveSamples SamplesInView(std::span<const std::uint8_t> samples, const ProfileView& view)
{
    return InView(samples, view);
}

CurveSamplesOf<std::int32_t> SamplesInView(
    std::span<const std::int32_t> samples, const ProfileView& view)
{
    return InView(samples, view);
}

CurveSamplesOf<double> ValuesInView(std::span<const double> values, const ProfileView& view)
{
    return InView(values, view);
}

} // namespace vireo
