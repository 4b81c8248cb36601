#include "viewers/controls/VerticalScale.h"

#include <algorithm>
#include <cmath>

namespace vireo {

namespace {

/// Values beyond this are faults of a measurement, and floats end soon behind it.
constexpr double kLargest = 1e30;
/// A scale is not narrower than this.
constexpr double kNarrowest = 1e-6;
constexpr double kSteps = 6.0;

/// The round step next above a sixth of a height: 1, 2, 2.5 or 5 times a power of ten.
double RoundStep(double height)
{
    constexpr double kDigits[] = {1.0, 2.0, 2.5, 5.0, 10.0};
    const double least = std::max(height, kNarrowest) / kSteps;
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double digit : kDigits)
        if (digit * power >= least)
            return digit * power;
    return 10.0 * power;
}

} // namespace

bool VerticalScale::IsValid() const
{
    return std::isfinite(top) && std::isfinite(bottom) && top - bottom >= kNarrowest / 2.0
        && std::isfinite(top - bottom) && gridStep > 0.0;
}

VerticalScale VerticalScale::Between(double bottom, double top)
{
    return {top, bottom, RoundStep(top - bottom)};
}

VerticalScale VerticalScale::Fitting(const ValueRange<double>& values)
{
    if (values.IsEmpty())
        return {};
    double low = std::clamp(values.lowest, -kLargest, kLargest);
    double high = std::clamp(values.highest, -kLargest, kLargest);
    double margin = 0.0;
    if (high - low < kNarrowest) {
        // A level line runs through the middle of its plot.
        const double room = std::max(std::abs(high) * 0.1, 1.0);
        low -= room;
        high += room;
    } else {
        // A curve that lay on the frame would not be seen.
        margin = RoundStep(high - low) * 0.1;
    }
    const double step = RoundStep(high - low);
    return {
        step * std::ceil((high + margin) / step), step * std::floor((low - margin) / step), step};
}

VerticalScale VerticalScale::ZoomedAt(double value, double times) const
{
    const VerticalScale zoomed =
        Between(value - (value - bottom) / times, value + (top - value) / times);
    const bool isSensible = zoomed.IsValid() && zoomed.top - zoomed.bottom >= kNarrowest
        && zoomed.top - zoomed.bottom <= kLargest;
    return isSensible ? zoomed : *this;
}

VerticalScale VerticalScale::MovedBy(double values) const
{
    return {top + values, bottom + values, gridStep};
}

std::vector<double> VerticalScale::GridLines() const
{
    constexpr double kMostLines = 100.0;
    constexpr double kSlack = 1e-9; // A limit that is a multiple but for its last bits is one.
    const double first = std::ceil(bottom / gridStep - kSlack);
    const double last = std::floor(top / gridStep + kSlack);
    std::vector<double> lines;
    if (!IsValid() || !(last - first < kMostLines))
        return lines;
    // Counted, so that neither adding up nor huge values keep the loop from ending.
    const auto count = static_cast<int>(last - first) + 1;
    for (int i = 0; i < count; ++i) {
        const double value = (first + i) * gridStep;
        lines.push_back(std::abs(value) < gridStep * kSlack ? 0.0 : value);
    }
    return lines;
}

} // namespace vireo
