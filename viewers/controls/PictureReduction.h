#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace vireo {

// Reducing a picture so that no thin line gets lost.
//
// Drawn small, one pixel stands for a block of pixels. Its value is their mean, so that noise,
// texture and edges look as from a distance. Only where the block holds something that would
// vanish, its value is that extreme itself: something clearly darker (or lighter) than the mean,
// which no block around it shows. How clearly is measured against the blocks around: noise is
// everywhere, a line leaves some of them calm.

// The loops over bytes are written for the compiler's vectoriser: bytes in, bytes out, no branches,
// and parameters that are said not to overlap.

inline std::uint8_t LowerByte(std::uint8_t a, std::uint8_t b)
{
    return a < b ? a : b;
}

inline std::uint8_t HigherByte(std::uint8_t a, std::uint8_t b)
{
    return a < b ? b : a;
}

/// About half-way between two values: the vectoriser has one instruction for it.
inline std::uint8_t MiddleByte(std::uint8_t a, std::uint8_t b)
{
    return static_cast<std::uint8_t>((a + b + 1) >> 1);
}

/// Mean, lowest and highest value of blocks that lie side by side, while they are summed up.
struct BlockSums {
    explicit BlockSums(std::size_t count = 0) : mean(count), lowest(count), highest(count) { }

    std::vector<std::uint8_t> mean;
    std::vector<std::uint8_t> lowest;
    std::vector<std::uint8_t> highest;
};

/// What is left of the blocks of one row: each one's mean, and of its lowest and highest value the
/// one that is farther from it.
struct BlockRow {
    explicit BlockRow(std::size_t count = 0) : mean(count), extreme(count) { }

    std::vector<std::uint8_t> mean;
    std::vector<std::uint8_t> extreme;
};

/// Most rows that a block may have.
inline constexpr std::size_t kMostBlockRows = 64;

/// The blocks that are one pixel wide and as high as there are rows: 1 to kMostBlockRows. The first
/// one goes to place `offset` of `blocks`.
void SumUpRows(std::span<const std::uint8_t* const> rows, std::size_t width, BlockSums& blocks,
    std::size_t offset = 0);

/// The value that is farther from the mean, for `count` blocks.
void FindExtremes(const BlockSums& blocks, std::size_t count, std::uint8_t* extremes);

/// Joins blocks 2i and 2i + 1 of a row into one; an odd last one stays alone.
class ColumnHalver {
public:
    /// Halves the first `count` blocks `times` times in place; gives how many are left.
    std::size_t Halve(BlockSums& blocks, std::size_t count, int times);

private:
    BlockSums m_half;
};

/// Reorders a row of red, green, blue, red ... into all red, all green, all blue. `scratch` may be
/// anything.
void SplitChannels(std::span<std::uint8_t> row, std::vector<std::uint8_t>& scratch);

/// Runs over the rows of blocks first <= i < end of `count` in all, and hands out each with its
/// neighbours. `make` sums a row up, in order and once each; `take` gets rows above, at and below
/// i. Stops when `take` returns false.
class BlockRowRun {
public:
    using Make = std::function<void(std::int64_t row, BlockRow& blocks)>;
    using Take = std::function<bool(
        std::int64_t row, const BlockRow& above, const BlockRow& here, const BlockRow& below)>;

    /// Rows with room for `blocks` blocks.
    explicit BlockRowRun(std::size_t blocks);
    void Run(std::int64_t first, std::int64_t end, std::int64_t count, const Make& make,
        const Take& take);

private:
    BlockRow m_rows[3];
};

} // namespace vireo
