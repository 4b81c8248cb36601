#pragma once

#include <cstdint>

namespace vireo {

/// A small random generator (SplitMix64) that gives the same numbers on every system and with every
/// standard library, so that samples made twice are the same bytes.
class SampleRandom {
public:
    explicit SampleRandom(std::uint64_t seed) : m_state(seed) { }

    std::uint32_t Next()
    {
        m_state += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = m_state;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
        return static_cast<std::uint32_t>((mixed ^ (mixed >> 31)) >> 32);
    }

    /// A whole number from `low` to `high`, both included.
    int Between(int low, int high)
    {
        const auto range = static_cast<std::uint64_t>(high - low) + 1;
        return low + static_cast<int>((Next() * range) >> 32);
    }

    /// Nearly normally distributed around 0 with a standard deviation of kNormalDeviation: the sum
    /// of four bytes.
    int Normal()
    {
        const std::uint32_t bits = Next();
        const std::uint32_t pairs = (bits & 0x00FF00FFU) + ((bits >> 8) & 0x00FF00FFU);
        return static_cast<int>((pairs & 0xFFFFU) + (pairs >> 16)) - 510;
    }
    static constexpr int kNormalDeviation = 148;

private:
    std::uint64_t m_state;
};

} // namespace vireo
