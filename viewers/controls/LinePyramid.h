#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vireo {

/// Lowest and highest value of a stretch of samples.
struct SampleRange {
    std::uint8_t lowest = 255;
    std::uint8_t highest = 0;

    bool IsEmpty() const { return lowest > highest; }
    void Include(std::uint8_t value)
    {
        lowest = value < lowest ? value : lowest;
        highest = value > highest ? value : highest;
    }
    void Include(const SampleRange& other)
    {
        lowest = other.lowest < lowest ? other.lowest : lowest;
        highest = other.highest > highest ? other.highest : highest;
    }
};

/// A summary of a line of 8-bit samples that finds the lowest and highest value of any stretch in a
/// time that does not grow with its length: level 0 holds the range of every 16 samples, each
/// further level that of every 16 of the level below. The samples are not owned.
class LinePyramid {
public:
    static constexpr std::size_t kFanOut = 16;

    /// Builds the levels in one pass over the samples.
    void Build(std::span<const std::uint8_t> samples);

    /// Range of the samples first <= i < end, clipped to the line; empty when there is none.
    SampleRange Range(
        std::span<const std::uint8_t> samples, std::int64_t first, std::int64_t end) const;

private:
    std::vector<std::vector<SampleRange>> m_levels;
};

} // namespace vireo
