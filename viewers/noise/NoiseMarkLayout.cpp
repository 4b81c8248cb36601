#include "viewers/noise/NoiseMarkLayout.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace vireo {

namespace {

/// Levels are counted from 255 down for marks, but from 256 for lines and the curve: a tip stands
/// one level above its pixel's place on the curve.
constexpr double kLevels = 256.0;
constexpr double kTopLevel = 255.0;

/// The mark that deviates the most among the marks first <= number < end of one kind.
std::int32_t FarthestMark(const NoisePlane& plane, NoiseMarkKind kind,
    const NoiseMarksInView& marks, std::size_t first, std::size_t end)
{
    const std::vector<std::uint8_t>& samples = plane.trace.samples;
    // From mark to mark no sample goes beyond all the marks, so the extreme of the stretch is one,
    // and the summary gives it without a look at each.
    const SampleRange range =
        plane.trace.pyramid.Range(samples, marks.At(first), marks.At(end - 1) + 1);
    const std::uint8_t extreme = kind == NoiseMarkKind::Dip ? range.lowest : range.highest;
    const auto found = std::find(samples.begin() + marks.At(first), samples.end(), extreme);
    return static_cast<std::int32_t>(found - samples.begin());
}

void PlaceKind(const NoisePlane& plane, NoiseMarkKind kind, const ProfileScale& scale,
    std::vector<PlacedNoiseMark>& placed)
{
    const std::vector<std::uint8_t>& samples = plane.trace.samples;
    const NoiseMarksInView marks(samples, plane.Marks(kind), plane.Band(), kind,
        static_cast<std::int64_t>(std::floor(scale.view.first)),
        static_cast<std::int64_t>(std::ceil(scale.view.End())));
    const double perLevel = scale.height / kLevels;
    std::size_t number = 0;
    while (number < marks.Count()) {
        const double column = std::floor(scale.XAt(marks.At(number) + 0.5));
        const double nextColumn = std::ceil(scale.PixelAt(column + 1.0) - 0.5);
        const std::size_t next =
            std::max(marks.FirstFrom(static_cast<std::int64_t>(nextColumn)), number + 1);
        const std::int32_t index = FarthestMark(plane, kind, marks, number, next);
        const int value = samples[static_cast<std::size_t>(index)];
        // Peaks are marked at the average, out of the way of the dips.
        const int level = kind == NoiseMarkKind::Dip ? value : plane.average;
        placed.push_back({kind, index, std::abs(value - plane.average), scale.XAt(index + 0.5),
            scale.top + (kTopLevel - level) * perLevel});
        number = next;
    }
}

} // namespace

std::vector<PlacedNoiseMark> PlaceNoiseMarks(const NoisePlane& plane, const ProfileScale& scale)
{
    std::vector<PlacedNoiseMark> placed;
    if (scale.view.length <= 0.0)
        return placed;
    PlaceKind(plane, NoiseMarkKind::Dip, scale, placed);
    PlaceKind(plane, NoiseMarkKind::Peak, scale, placed);
    return placed;
}

namespace {

/// Beyond so many marks no further label finds room in any plot.
constexpr std::ptrdiff_t kMostCandidates = 400;

std::vector<PlacedNoiseMark> ByDeviation(const std::vector<PlacedNoiseMark>& marks)
{
    std::vector<PlacedNoiseMark> sorted = marks;
    const auto end = sorted.begin() + std::min(std::ssize(sorted), kMostCandidates);
    std::partial_sort(
        sorted.begin(), end, sorted.end(), [](const PlacedNoiseMark& a, const PlacedNoiseMark& b) {
            return a.deviation != b.deviation ? a.deviation > b.deviation : a.x < b.x;
        });
    sorted.erase(end, sorted.end());
    return sorted;
}

bool Overlap(const PlacedNoiseLabel& a, const PlacedNoiseLabel& b, double height)
{
    constexpr double kGap = 4.0;
    return a.left < b.left + b.width + kGap && b.left < a.left + a.width + kGap
        && a.top < b.top + height && b.top < a.top + height;
}

/// Moves a label to the first of its lines where it stays in the plot and covers no other.
bool FindRoom(PlacedNoiseLabel& label, double tip, const ProfileScale& scale,
    const std::vector<PlacedNoiseLabel>& others, double height)
{
    constexpr double kBelowTip = 22.0;
    constexpr double kAboveTip = 2.0;
    constexpr int kLines = 3;
    const bool fitsBelow = tip + kBelowTip + height <= scale.Bottom();
    const double first = fitsBelow ? tip + kBelowTip : tip - kAboveTip - height;
    for (int line = 0; line < kLines; ++line) {
        label.top = first + (fitsBelow ? line : -line) * height;
        const bool inside = label.top >= scale.top && label.top + height <= scale.Bottom();
        const bool isFree = std::none_of(others.begin(), others.end(),
            [&](const PlacedNoiseLabel& other) { return Overlap(label, other, height); });
        if (inside && isFree)
            return true;
    }
    return false;
}

} // namespace

std::vector<PlacedNoiseLabel> PlaceNoiseLabels(const std::vector<PlacedNoiseMark>& marks,
    const NoiseRuler& ruler, const ProfileScale& scale, const NoiseLabelMetrics& metrics)
{
    std::vector<PlacedNoiseLabel> placed;
    for (const PlacedNoiseMark& mark : ByDeviation(marks)) {
        PlacedNoiseLabel label;
        label.text = ruler.MarkLabel(mark.index);
        label.width = metrics.widthOf(label.text);
        label.left =
            std::max(std::min(mark.x - label.width / 2.0, scale.Right() - label.width), scale.left);
        if (FindRoom(label, mark.y, scale, placed, metrics.height))
            placed.push_back(std::move(label));
    }
    return placed;
}

} // namespace vireo
