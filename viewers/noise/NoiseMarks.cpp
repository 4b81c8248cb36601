#include "viewers/noise/NoiseMarks.h"

#include <algorithm>
#include <cassert>

namespace vireo {

namespace {

using Samples = std::span<const std::uint8_t>;

/// Whether a sample belongs to a run of one kind.
template <NoiseMarkKind kKind>
struct OutsideTest {
    explicit OutsideTest(const NoiseBand& band)
        : limit(static_cast<std::uint8_t>(std::clamp(band.Limit(kKind), 0, 255)))
    {
    }

    bool operator()(std::uint8_t sample) const
    {
        return kKind == NoiseMarkKind::Dip ? sample < limit : sample > limit;
    }

    std::uint8_t limit;
};

/// Samples are looked at in blocks of a fixed length, which the compiler takes in a few vector
/// steps.
constexpr std::size_t kBlock = 64;
/// So many samples are looked at one by one first: where runs are short, a block is a waste.
constexpr std::size_t kSingles = 8;

template <bool kOutside, typename Test>
bool AnyInBlock(std::span<const std::uint8_t, kBlock> block, Test outside)
{
    std::uint8_t any = 0;
    for (const std::uint8_t sample : block)
        any |= static_cast<std::uint8_t>(outside(sample) == kOutside);
    return any != 0;
}

/// Index of the first sample from `from` on that is outside (or inside); the length if there is
/// none.
template <bool kOutside, typename Test>
std::size_t FindFirst(Samples samples, std::size_t from, Test outside)
{
    const std::size_t singles = std::min(samples.size(), from + kSingles);
    while (from < singles && outside(samples[from]) != kOutside)
        ++from;
    if (from < singles)
        return from;
    while (samples.size() - from >= kBlock
        && !AnyInBlock<kOutside>(samples.subspan(from).first<kBlock>(), outside))
        from += kBlock;
    while (from < samples.size() && outside(samples[from]) != kOutside)
        ++from;
    return from;
}

/// Index of the first sample of the run that ends before `end`, not looking before `first`.
template <typename Test>
std::size_t BeginOfRun(Samples samples, std::size_t first, std::size_t end, Test outside)
{
    while (end - first >= kBlock
        && !AnyInBlock<false>(samples.subspan(end - kBlock).first<kBlock>(), outside))
        end -= kBlock;
    while (end > first && outside(samples[end - 1]))
        --end;
    return end;
}

/// Index of the first lowest or highest sample of a run.
template <NoiseMarkKind kKind>
std::int32_t MarkOfRun(Samples samples, std::size_t begin, std::size_t end)
{
    const Samples run = samples.subspan(begin, end - begin);
    std::uint8_t extreme = run[0];
    for (const std::uint8_t sample : run)
        extreme =
            kKind == NoiseMarkKind::Dip ? std::min(extreme, sample) : std::max(extreme, sample);
    return static_cast<std::int32_t>(std::find(run.begin(), run.end(), extreme) - samples.begin());
}

/// A run from its first sample on: the index behind its last, and its mark.
struct Run {
    std::size_t end = 0;
    std::int32_t mark = 0;
};

template <NoiseMarkKind kKind>
Run RunFrom(Samples samples, std::size_t begin, const OutsideTest<kKind>& outside)
{
    // Short runs, of which there may be millions, are walked once; long ones go by blocks.
    constexpr std::size_t kShortRun = 32;
    const std::size_t walked = std::min(samples.size(), begin + kShortRun);
    std::size_t mark = begin;
    std::size_t end = begin + 1;
    for (; end < walked && outside(samples[end]); ++end)
        if (kKind == NoiseMarkKind::Dip ? samples[end] < samples[mark]
                                        : samples[end] > samples[mark])
            mark = end;
    if (end < walked || end == samples.size())
        return {end, static_cast<std::int32_t>(mark)};
    end = FindFirst<false>(samples, end, outside);
    return {end, MarkOfRun<kKind>(samples, begin, end)};
}

template <NoiseMarkKind kKind>
std::vector<std::int32_t> FindMarks(Samples samples, const NoiseBand& band)
{
    const OutsideTest<kKind> outside(band);
    std::vector<std::int32_t> marks;
    std::size_t begin = FindFirst<true>(samples, 0, outside);
    while (begin < samples.size()) {
        const Run run = RunFrom<kKind>(samples, begin, outside);
        marks.push_back(run.mark);
        begin = FindFirst<true>(samples, run.end, outside);
    }
    return marks;
}

} // namespace

std::vector<std::int32_t> FindNoiseMarks(
    std::span<const std::uint8_t> samples, const NoiseBand& band, NoiseMarkKind kind)
{
    if (static_cast<std::int64_t>(samples.size()) < NoiseBand::kFewestPixels)
        return {};
    return kind == NoiseMarkKind::Dip ? FindMarks<NoiseMarkKind::Dip>(samples, band)
                                      : FindMarks<NoiseMarkKind::Peak>(samples, band);
}

namespace {

/// The runs that the ends of a stretch cut: where the first ends and the last begins (at the ends
/// of the stretch when it cuts none there), and the marks of the parts inside.
struct CutRuns {
    std::size_t firstEnd = 0;
    std::size_t lastBegin = 0;
    std::optional<std::int32_t> first;
    std::optional<std::int32_t> last;
};

template <NoiseMarkKind kKind>
CutRuns FindCutRuns(Samples samples, const NoiseBand& band, std::size_t first, std::size_t end)
{
    const OutsideTest<kKind> outside(band);
    CutRuns cut{first, end, {}, {}};
    if (first > 0 && outside(samples[first]) && outside(samples[first - 1])) {
        cut.firstEnd = FindFirst<false>(samples.first(end), first, outside);
        cut.first = MarkOfRun<kKind>(samples, first, cut.firstEnd);
    }
    if (end < samples.size() && cut.firstEnd < end && outside(samples[end - 1])
        && outside(samples[end])) {
        cut.lastBegin = BeginOfRun(samples, cut.firstEnd, end, outside);
        cut.last = MarkOfRun<kKind>(samples, cut.lastBegin, end);
    }
    return cut;
}

} // namespace

NoiseMarksInView::NoiseMarksInView(std::span<const std::uint8_t> samples,
    std::span<const std::int32_t> marks, const NoiseBand& band, NoiseMarkKind kind,
    std::int64_t first, std::int64_t end)
{
    const auto length = static_cast<std::int64_t>(samples.size());
    first = std::clamp<std::int64_t>(first, 0, length);
    end = std::clamp<std::int64_t>(end, 0, length);
    if (first >= end || length < NoiseBand::kFewestPixels)
        return;
    const auto from = static_cast<std::size_t>(first);
    const auto to = static_cast<std::size_t>(end);
    const CutRuns cut = kind == NoiseMarkKind::Dip
        ? FindCutRuns<NoiseMarkKind::Dip>(samples, band, from, to)
        : FindCutRuns<NoiseMarkKind::Peak>(samples, band, from, to);
    m_cutFirst = cut.first;
    m_cutLast = cut.last;
    const auto begin =
        std::lower_bound(marks.begin(), marks.end(), static_cast<std::int64_t>(cut.firstEnd));
    const auto behind =
        std::lower_bound(begin, marks.end(), static_cast<std::int64_t>(cut.lastBegin));
    m_whole = {begin, behind};
}

std::int32_t NoiseMarksInView::At(std::size_t number) const
{
    assert(number < Count());
    if (m_cutFirst && number == 0)
        return *m_cutFirst;
    const std::size_t inWhole = number - (m_cutFirst ? 1U : 0U);
    return inWhole < m_whole.size() ? m_whole[inWhole] : *m_cutLast;
}

std::size_t NoiseMarksInView::FirstFrom(std::int64_t pixel) const
{
    if (m_cutFirst && *m_cutFirst >= pixel)
        return 0;
    const auto found = std::lower_bound(m_whole.begin(), m_whole.end(), pixel);
    const std::size_t number =
        static_cast<std::size_t>(found - m_whole.begin()) + (m_cutFirst ? 1U : 0U);
    const bool isBehindLast = found == m_whole.end() && m_cutLast && *m_cutLast < pixel;
    return isBehindLast ? number + 1 : number;
}

} // namespace vireo
