#include "viewers/controls/ProfileCurve.h"

#include <algorithm>
#include <cmath>

namespace vireo {

CurveColumns SumUpColumns(std::span<const std::uint8_t> samples, const LinePyramid& pyramid,
    const ProfileView& view, int columnCount)
{
    CurveColumns curve;
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

CurveSamples SamplesInView(std::span<const std::uint8_t> samples, const ProfileView& view)
{
    const auto length = static_cast<std::int64_t>(samples.size());
    const auto first =
        std::clamp<std::int64_t>(static_cast<std::int64_t>(std::floor(view.first)) - 1, 0, length);
    const auto end = std::clamp<std::int64_t>(
        static_cast<std::int64_t>(std::ceil(view.End())) + 1, first, length);
    return {first,
        samples.subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(end - first))};
}

} // namespace vireo
