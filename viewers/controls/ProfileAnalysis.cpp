#include "viewers/controls/ProfileAnalysis.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numeric>

namespace vireo {

double FocusFigure(std::span<const std::uint8_t> samples)
{
    if (samples.size() < 2)
        return 0.0;
    std::uint64_t energy = 0;
    for (std::size_t i = 1; i < samples.size(); ++i) {
        const int step = samples[i] - samples[i - 1];
        energy += static_cast<std::uint64_t>(step * step);
    }
    return static_cast<double>(energy) / static_cast<double>(samples.size() - 1);
}

namespace {

constexpr int kFewestLevelsApart = 32;
constexpr std::ptrdiff_t kStayPixels = 16;
constexpr std::ptrdiff_t kStayAtLeast = 12;

/// The value below which a share of the samples lies.
int Percentile(const std::array<std::uint64_t, 256>& histogram, std::uint64_t count, double share)
{
    const auto wanted = static_cast<std::uint64_t>(share * static_cast<double>(count));
    std::uint64_t below = 0;
    for (std::size_t value = 0; value < histogram.size(); ++value) {
        below += histogram[value];
        if (below > wanted)
            return static_cast<int>(value);
    }
    return 255;
}

/// The first sample of a lasting rise above `threshold`, as an index of the sequence.
template <typename Iterator>
std::optional<std::ptrdiff_t> FirstLastingRise(Iterator begin, Iterator end, double threshold)
{
    const auto isBright = [threshold](std::uint8_t value) { return value >= threshold; };
    auto at = std::find_if(begin, end, isBright);
    while (at != end) {
        const auto reach = std::min<std::ptrdiff_t>(kStayPixels, end - at);
        if (std::count_if(at, at + reach, isBright) >= std::min(kStayAtLeast, reach))
            return at - begin;
        at = std::find_if(at + 1, end, isBright);
    }
    return std::nullopt;
}

/// How far in front of the centre of the first bright sample the signal crosses the threshold.
double CrossingBefore(int dark, int bright, double threshold)
{
    return bright > dark ? (bright - threshold) / (bright - dark) : 0.0;
}

/// The edge as a distance from the sequence's outer end; nothing when the first sample is bright.
template <typename Iterator>
std::optional<double> EdgeFromEnd(Iterator begin, Iterator end, double threshold)
{
    const auto rise = FirstLastingRise(begin, end, threshold);
    if (!rise || *rise == 0)
        return std::nullopt;
    const double centre = static_cast<double>(*rise) + 0.5;
    return centre - CrossingBefore(begin[*rise - 1], begin[*rise], threshold);
}

} // namespace

TargetEdges FindTargetEdges(std::span<const std::uint8_t> samples)
{
    std::array<std::uint64_t, 256> histogram{};
    for (const std::uint8_t sample : samples)
        ++histogram[sample];
    const int dark = Percentile(histogram, samples.size(), 0.002);
    const int bright = Percentile(histogram, samples.size(), 0.75);
    if (samples.empty() || bright - dark < kFewestLevelsApart)
        return {};
    const double threshold = (dark + bright) / 2.0;
    TargetEdges edges;
    edges.left = EdgeFromEnd(samples.begin(), samples.end(), threshold);
    if (const auto fromRight = EdgeFromEnd(samples.rbegin(), samples.rend(), threshold))
        edges.right = static_cast<double>(samples.size()) - *fromRight;
    return edges;
}

namespace {

/// The sum of 32-bit samples fits: nobody holds 2^32 of them.
template <typename Sample>
double Mean(std::span<const Sample> samples)
{
    return static_cast<double>(std::accumulate(samples.begin(), samples.end(), std::int64_t{0}))
        / static_cast<double>(samples.size());
}

/// The stretch of a line within `reach` of a boundary.
struct Stretch {
    std::size_t first;
    std::size_t boundary;
    std::size_t end;
};

Stretch Around(std::size_t length, std::int64_t boundary, std::int64_t reach)
{
    const auto limit = static_cast<std::int64_t>(length);
    const std::int64_t middle = std::clamp<std::int64_t>(boundary, 0, limit);
    return {static_cast<std::size_t>(std::clamp<std::int64_t>(boundary - reach, 0, middle)),
        static_cast<std::size_t>(middle),
        static_cast<std::size_t>(std::clamp<std::int64_t>(boundary + reach, middle, limit))};
}

template <typename Sample>
std::optional<BoundaryMeans> MeansAround(
    std::span<const Sample> samples, std::int64_t boundary, std::int64_t reach)
{
    const Stretch around = Around(samples.size(), boundary, reach);
    if (around.first == around.boundary || around.boundary == around.end)
        return std::nullopt;
    return BoundaryMeans{Mean(samples.subspan(around.first, around.boundary - around.first)),
        Mean(samples.subspan(around.boundary, around.end - around.boundary))};
}

} // namespace

std::optional<BoundaryMeans> MeasureBoundary(
    std::span<const std::uint8_t> samples, std::int64_t boundary, std::int64_t reach)
{
    return MeansAround(samples, boundary, reach);
}

std::optional<BoundaryMeans> MeasureBoundary(
    std::span<const std::int32_t> samples, std::int64_t boundary, std::int64_t reach)
{
    return MeansAround(samples, boundary, reach);
}

std::optional<double> FindTransition(
    std::span<const std::uint8_t> samples, std::int64_t boundary, std::int64_t reach)
{
    constexpr int kLeastStep = 12;
    constexpr int kTimesMean = 4;
    constexpr std::size_t kSlopeReach = 3;

    const Stretch around = Around(samples.size(), boundary, reach);
    if (around.end - around.first < 2)
        return std::nullopt;
    const auto stepBehind = [&](std::size_t i) { return samples[i + 1] - samples[i]; };
    std::size_t steepest = around.first;
    std::int64_t sum = 0;
    for (std::size_t i = around.first; i + 1 < around.end; ++i) {
        sum += std::abs(stepBehind(i));
        if (std::abs(stepBehind(i)) > std::abs(stepBehind(steepest)))
            steepest = i;
    }
    const int largest = std::abs(stepBehind(steepest));
    const auto steps = static_cast<std::int64_t>(around.end - around.first - 1);
    if (largest < kLeastStep || largest * steps < kTimesMean * sum)
        return std::nullopt;

    // Only steps in the direction of the steepest belong to its slope.
    const int sign = stepBehind(steepest) > 0 ? 1 : -1;
    double weight = 0.0;
    double moment = 0.0;
    const std::size_t from = std::max(around.first, steepest - std::min(steepest, kSlopeReach));
    const std::size_t to = std::min(around.end - 1, steepest + kSlopeReach + 1);
    for (std::size_t i = from; i < to; ++i) {
        const double step = std::max(sign * stepBehind(i), 0);
        weight += step;
        // The step between the centres of samples i and i + 1 lies at i + 1.
        moment += step * static_cast<double>(i + 1);
    }
    return moment / weight;
}

} // namespace vireo
