#include "viewers/controls/LinePyramid.h"

#include <algorithm>

namespace vireo {

namespace {

constexpr std::size_t kFanOut = LinePyramid::kFanOut;

/// The range of some entries of a level, which are samples or ranges.
template <typename Value, typename Entry, std::size_t Extent>
ValueRange<Value> RangeOf(std::span<const Entry, Extent> entries)
{
    ValueRange<Value> range;
    for (const Entry& entry : entries)
        range.Include(entry);
    return range;
}

/// The level above `below`: the range of every kFanOut of its entries.
template <typename Value, typename Entry>
std::vector<ValueRange<Value>> LevelAbove(std::span<const Entry> below)
{
    std::vector<ValueRange<Value>> level((below.size() + kFanOut - 1) / kFanOut);
    const std::size_t whole = below.size() / kFanOut;
    // The fixed length of the whole groups lets the compiler take each in one vector step.
    for (std::size_t i = 0; i < whole; ++i)
        level[i] =
            RangeOf<Value>(std::span<const Entry, kFanOut>(below.data() + i * kFanOut, kFanOut));
    if (whole < level.size())
        level[whole] = RangeOf<Value>(below.subspan(whole * kFanOut));
    return level;
}

} // namespace

template <typename Value>
void RangePyramid<Value>::Build(std::span<const Value> samples)
{
    m_levels.clear();
    if (samples.size() <= kFanOut)
        return;
    m_levels.push_back(LevelAbove<Value>(samples));
    while (m_levels.back().size() > kFanOut)
        m_levels.push_back(LevelAbove<Value>(std::span<const ValueRange<Value>>(m_levels.back())));
}

namespace {

/// Takes the entries of begin..end that do not fill a whole group of the level above into `range`,
/// and leaves in begin..end the groups of that level still to be taken.
template <typename Value, typename Entry>
void TakeEdges(
    std::span<const Entry> entries, std::size_t& begin, std::size_t& end, ValueRange<Value>& range)
{
    const std::size_t firstGroup = (begin + kFanOut - 1) / kFanOut;
    const std::size_t endGroup = end / kFanOut;
    if (firstGroup >= endGroup) {
        range.Include(RangeOf<Value>(entries.subspan(begin, end - begin)));
        begin = end = 0;
        return;
    }
    range.Include(RangeOf<Value>(entries.subspan(begin, firstGroup * kFanOut - begin)));
    range.Include(RangeOf<Value>(entries.subspan(endGroup * kFanOut, end - endGroup * kFanOut)));
    begin = firstGroup;
    end = endGroup;
}

} // namespace

template <typename Value>
ValueRange<Value> RangePyramid<Value>::Range(
    std::span<const Value> samples, std::int64_t first, std::int64_t end) const
{
    const auto length = static_cast<std::int64_t>(samples.size());
    first = std::clamp<std::int64_t>(first, 0, length);
    end = std::clamp<std::int64_t>(end, 0, length);
    ValueRange<Value> range;
    if (first >= end)
        return range;
    auto from = static_cast<std::size_t>(first);
    auto to = static_cast<std::size_t>(end);
    if (m_levels.empty()) {
        range.Include(RangeOf<Value>(samples.subspan(from, to - from)));
        return range;
    }
    TakeEdges(samples, from, to, range);
    for (std::size_t level = 0; level < m_levels.size() && from < to; ++level) {
        const std::span<const ValueRange<Value>> entries(m_levels[level]);
        if (level + 1 == m_levels.size()) {
            range.Include(RangeOf<Value>(entries.subspan(from, to - from)));
            break;
        }
        TakeEdges(entries, from, to, range);
    }
    return range;
}

template class RangePyramid<std::uint8_t>;
template class RangePyramid<std::int32_t>;
template class RangePyramid<double>;

} // namespace vireo
