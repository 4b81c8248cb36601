#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace vireo {

/// Lowest and highest value of a stretch of samples. What is no number (NaN) does not count.
template <typename Value>
struct ValueRange {
    Value lowest = std::numeric_limits<Value>::max();
    Value highest = std::numeric_limits<Value>::lowest();

    bool IsEmpty() const { return lowest > highest; }
    void Include(Value value)
    {
        lowest = value < lowest ? value : lowest;
        highest = value > highest ? value : highest;
    }
    void Include(const ValueRange& other)
    {
        lowest = other.lowest < lowest ? other.lowest : lowest;
        highest = other.highest > highest ? other.highest : highest;
    }
};

using SampleRange = ValueRange<std::uint8_t>;

/// A summary of a line of samples, 8-bit, 32-bit or double, that finds the lowest and highest value
/// of any stretch in a time that does not grow with its length: level 0 holds the range of every 16
/// samples, each further level that of every 16 of the level below. The samples are not owned.
template <typename Value>
class RangePyramid {
public:
    static constexpr std::size_t kFanOut = 16;

    /// Builds the levels in one pass over the samples.
    void Build(std::span<const Value> samples);

    /// Range of the samples first <= i < end, clipped to the line; empty when there is none.
    ValueRange<Value> Range(
        std::span<const Value> samples, std::int64_t first, std::int64_t end) const;

private:
    std::vector<std::vector<ValueRange<Value>>> m_levels;
};

using LinePyramid = RangePyramid<std::uint8_t>;
extern template class RangePyramid<std::uint8_t>;
extern template class RangePyramid<std::int32_t>;
extern template class RangePyramid<double>;

} // namespace vireo
