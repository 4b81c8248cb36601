#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace vireo {

/// Focus figure of a camera's samples: the mean squared difference of neighbouring samples
/// (gradient energy). The sharper the picture of the same target, the larger; 0 for fewer than two
/// samples.
double FocusFigure(std::span<const std::uint8_t> samples);

/// Where a bright target begins and ends on a line, in pixels (pixel i covers i to i + 1), to a
/// part of a pixel.
struct TargetEdges {
    std::optional<double> left; ///< Nothing when the target reaches beyond the line.
    std::optional<double> right;

    std::optional<double> Width() const
    {
        return left && right ? std::optional(*right - *left) : std::nullopt;
    }
    std::optional<double> Centre() const
    {
        return left && right ? std::optional((*left + *right) / 2.0) : std::nullopt;
    }
};

/// Finds the outer edges of the target: the first and the last place where the signal crosses half
/// the way between its dark level (the 0.2th percentile) and its bright level (the 75th), and stays
/// across for most of the next 16 pixels, so that dust and noise outside are passed over. The place
/// within a pixel is interpolated. Both are missing when the levels are less than 32 apart.
TargetEdges FindTargetEdges(std::span<const std::uint8_t> samples);

/// Mean values on the two sides of a camera boundary.
struct BoundaryMeans {
    double left = 0.0;
    double right = 0.0;

    double Step() const { return right - left; }
};

/// Means of up to `reach` pixels before and behind `boundary`; nothing where a side has none.
std::optional<BoundaryMeans> MeasureBoundary(
    std::span<const std::uint8_t> samples, std::int64_t boundary, std::int64_t reach);
std::optional<BoundaryMeans> MeasureBoundary(
    std::span<const std::int32_t> samples, std::int64_t boundary, std::int64_t reach);

/// Where the signal changes the most within `reach` pixels of `boundary`: the centre of gravity of
/// the steepest slope, in pixels of the line to a part of a pixel. Nothing when no slope stands out
/// (steepest step below 12, or below four times the mean step).
std::optional<double> FindTransition(
    std::span<const std::uint8_t> samples, std::int64_t boundary, std::int64_t reach);

} // namespace vireo
