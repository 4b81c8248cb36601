#include "viewers/controls/LinePyramid.h"

#include <algorithm>

namespace vireo {

namespace {

SampleRange RangeOf(std::span<const std::uint8_t> samples)
{
    SampleRange range;
    for (const std::uint8_t sample : samples)
        range.Include(sample);
    return range;
}

SampleRange RangeOf(std::span<const SampleRange> ranges)
{
    SampleRange range;
    for (const SampleRange& part : ranges)
        range.Include(part);
    return range;
}

/// The level above `below`: the range of every kFanOut of its entries.
template <typename Entry>
std::vector<SampleRange> LevelAbove(std::span<const Entry> below)
{
    constexpr std::size_t kFanOut = LinePyramid::kFanOut;
    std::vector<SampleRange> level((below.size() + kFanOut - 1) / kFanOut);
    const std::size_t whole = below.size() / kFanOut;
    // The fixed length of the whole groups lets the compiler take each in one vector step.
    for (std::size_t i = 0; i < whole; ++i)
        level[i] = RangeOf(std::span<const Entry, kFanOut>(below.data() + i * kFanOut, kFanOut));
    if (whole < level.size())
        level[whole] = RangeOf(below.subspan(whole * kFanOut));
    return level;
}

} // namespace

void LinePyramid::Build(std::span<const std::uint8_t> samples)
{
    m_levels.clear();
    if (samples.size() <= kFanOut)
        return;
    m_levels.push_back(LevelAbove<std::uint8_t>(samples));
    while (m_levels.back().size() > kFanOut)
        m_levels.push_back(LevelAbove<SampleRange>(m_levels.back()));
}

namespace {

/// Takes the entries of begin..end that do not fill a whole group of the level above into `range`,
/// and leaves in begin..end the groups of that level still to be taken.
template <typename Entry>
void TakeEdges(
    std::span<const Entry> entries, std::size_t& begin, std::size_t& end, SampleRange& range)
{
    constexpr std::size_t kFanOut = LinePyramid::kFanOut;
    const std::size_t firstGroup = (begin + kFanOut - 1) / kFanOut;
    const std::size_t endGroup = end / kFanOut;
    if (firstGroup >= endGroup) {
        range.Include(RangeOf(entries.subspan(begin, end - begin)));
        begin = end = 0;
        return;
    }
    range.Include(RangeOf(entries.subspan(begin, firstGroup * kFanOut - begin)));
    range.Include(RangeOf(entries.subspan(endGroup * kFanOut, end - endGroup * kFanOut)));
    begin = firstGroup;
    end = endGroup;
}

} // namespace

SampleRange LinePyramid::Range(
    std::span<const std::uint8_t> samples, std::int64_t first, std::int64_t end) const
{
    const auto length = static_cast<std::int64_t>(samples.size());
    first = std::clamp<std::int64_t>(first, 0, length);
    end = std::clamp<std::int64_t>(end, 0, length);
    SampleRange range;
    if (first >= end)
        return range;
    auto from = static_cast<std::size_t>(first);
    auto to = static_cast<std::size_t>(end);
    if (m_levels.empty()) {
        range.Include(RangeOf(samples.subspan(from, to - from)));
        return range;
    }
    TakeEdges(samples, from, to, range);
    for (std::size_t level = 0; level < m_levels.size() && from < to; ++level) {
        const std::span<const SampleRange> entries(m_levels[level]);
        if (level + 1 == m_levels.size()) {
            range.Include(RangeOf(entries.subspan(from, to - from)));
            break;
        }
        TakeEdges(entries, from, to, range);
    }
    return range;
}

} // namespace vireo
