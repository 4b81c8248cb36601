#include "viewers/controls/PictureReduction.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace vireo {

namespace {

struct BlockPointers {
    std::uint8_t* mean;
    std::uint8_t* lowest;
    std::uint8_t* highest;
};

/// Sums up to four rows in one pass; with fewer, the last ones are the first one again.
template <unsigned Count>
void SumUpFew(const std::uint8_t* __restrict first, const std::uint8_t* __restrict second,
    const std::uint8_t* __restrict third, const std::uint8_t* __restrict fourth, std::size_t width,
    std::uint8_t* __restrict mean, std::uint8_t* __restrict lowest,
    std::uint8_t* __restrict highest)
{
    for (std::size_t x = 0; x < width; ++x) {
        const std::uint8_t a = first[x];
        const std::uint8_t b = second[x];
        const std::uint8_t c = third[x];
        const std::uint8_t d = fourth[x];
        lowest[x] = LowerByte(LowerByte(a, b), LowerByte(c, d));
        highest[x] = HigherByte(HigherByte(a, b), HigherByte(c, d));
        auto sum = static_cast<std::uint16_t>(a + Count / 2);
        if constexpr (Count > 1)
            sum = static_cast<std::uint16_t>(sum + b);
        if constexpr (Count > 2)
            sum = static_cast<std::uint16_t>(sum + c);
        if constexpr (Count > 3)
            sum = static_cast<std::uint16_t>(sum + d);
        mean[x] = static_cast<std::uint8_t>(sum / Count);
    }
}

template <unsigned Count>
void SumUpFew(const std::uint8_t* const* rows, std::size_t width, const BlockPointers& out)
{
    SumUpFew<Count>(rows[0], rows[Count > 1 ? 1 : 0], rows[Count > 2 ? 2 : 0],
        rows[Count > 3 ? 3 : 0], width, out.mean, out.lowest, out.highest);
}

/// Sums up any number of rows, strip by strip so that the sums stay in the fastest cache.
void SumUpMany(
    std::span<const std::uint8_t* const> rows, std::size_t width, const BlockPointers& out)
{
    constexpr std::size_t kStrip = 4096;
    std::array<std::uint16_t, kStrip> sums;
    const auto count = static_cast<std::uint32_t>(rows.size());
    const std::uint32_t share = (65'536 + count - 1) / count; // 1 / count, in 16 bits
    for (std::size_t start = 0; start < width; start += kStrip) {
        const std::size_t strip = std::min(kStrip, width - start);
        std::uint8_t* const __restrict lowest = out.lowest + start;
        std::uint8_t* const __restrict highest = out.highest + start;
        std::uint8_t* const __restrict mean = out.mean + start;
        sums.fill(static_cast<std::uint16_t>(count / 2));
        std::fill_n(lowest, strip, std::uint8_t{255});
        std::fill_n(highest, strip, std::uint8_t{0});
        for (const std::uint8_t* const row : rows) {
            const std::uint8_t* const __restrict pixels = row + start;
            for (std::size_t x = 0; x < strip; ++x) {
                sums[x] = static_cast<std::uint16_t>(sums[x] + pixels[x]);
                lowest[x] = LowerByte(lowest[x], pixels[x]);
                highest[x] = HigherByte(highest[x], pixels[x]);
            }
        }
        for (std::size_t x = 0; x < strip; ++x)
            mean[x] = static_cast<std::uint8_t>((sums[x] * share) >> 16);
    }
}

} // namespace

void SumUpRows(std::span<const std::uint8_t* const> rows, std::size_t width, BlockSums& blocks,
    std::size_t offset)
{
    assert(!rows.empty() && rows.size() <= kMostBlockRows);
    assert(offset + width <= blocks.mean.size());
    const BlockPointers out{
        blocks.mean.data() + offset, blocks.lowest.data() + offset, blocks.highest.data() + offset};
    switch (rows.size()) {
    case 1:
        return SumUpFew<1>(rows.data(), width, out);
    case 2:
        return SumUpFew<2>(rows.data(), width, out);
    case 3:
        return SumUpFew<3>(rows.data(), width, out);
    case 4:
        return SumUpFew<4>(rows.data(), width, out);
    default:
        return SumUpMany(rows, width, out);
    }
}

namespace {

template <typename Join>
void JoinPairs(const std::vector<std::uint8_t>& from, std::vector<std::uint8_t>& into,
    std::size_t pairs, const Join& join)
{
    const std::uint8_t* const __restrict in = from.data();
    std::uint8_t* const __restrict out = into.data();
    for (std::size_t i = 0; i < pairs; ++i)
        out[i] = join(in[2 * i], in[2 * i + 1]);
}

} // namespace

std::size_t ColumnHalver::Halve(BlockSums& blocks, std::size_t count, int times)
{
    if (m_half.mean.size() < blocks.mean.size())
        m_half = BlockSums(blocks.mean.size());
    for (int time = 0; time < times && count > 1; ++time) {
        // Rounding up and down in turns keeps the mean where it is over many steps.
        const int rounding = time % 2 == 0 ? 1 : 0;
        const auto mean = [rounding](std::uint8_t a, std::uint8_t b) {
            return static_cast<std::uint8_t>((a + b + rounding) >> 1);
        };
        const std::size_t pairs = count / 2;
        JoinPairs(blocks.mean, m_half.mean, pairs, mean);
        JoinPairs(blocks.lowest, m_half.lowest, pairs, LowerByte);
        JoinPairs(blocks.highest, m_half.highest, pairs, HigherByte);
        if (count % 2 != 0) {
            m_half.mean[pairs] = blocks.mean[count - 1];
            m_half.lowest[pairs] = blocks.lowest[count - 1];
            m_half.highest[pairs] = blocks.highest[count - 1];
        }
        count = pairs + count % 2;
        std::swap(blocks, m_half);
    }
    return count;
}

namespace {

void FindExtremes(const std::uint8_t* __restrict means, const std::uint8_t* __restrict lows,
    const std::uint8_t* __restrict highs, std::size_t count, std::uint8_t* __restrict extremes)
{
    for (std::size_t i = 0; i < count; ++i) {
        const auto below = static_cast<std::uint8_t>(means[i] - lows[i]);
        const auto above = static_cast<std::uint8_t>(highs[i] - means[i]);
        extremes[i] = below > above ? lows[i] : highs[i];
    }
}

} // namespace

void FindExtremes(const BlockSums& blocks, std::size_t count, std::uint8_t* extremes)
{
    FindExtremes(blocks.mean.data(), blocks.lowest.data(), blocks.highest.data(), count, extremes);
}

void SplitChannels(std::span<std::uint8_t> row, std::vector<std::uint8_t>& scratch)
{
    constexpr std::size_t kChannels = 3;
    scratch.assign(row.begin(), row.end());
    const std::size_t width = row.size() / kChannels;
    for (std::size_t channel = 0; channel < kChannels; ++channel) {
        const std::uint8_t* const __restrict in = scratch.data() + channel;
        std::uint8_t* const __restrict plane = row.data() + channel * width;
        for (std::size_t x = 0; x < width; ++x)
            plane[x] = in[kChannels * x];
    }
}

BlockRowRun::BlockRowRun(std::size_t blocks)
    : m_rows{BlockRow(blocks), BlockRow(blocks), BlockRow(blocks)}
{
}

void BlockRowRun::Run(
    std::int64_t first, std::int64_t end, std::int64_t count, const Make& make, const Take& take)
{
    const auto slot = [this](std::int64_t row) -> BlockRow& { return m_rows[row % 3]; };
    const std::int64_t start = std::max<std::int64_t>(first - 1, 0);
    for (std::int64_t row = start; row < std::min(end + 1, count); ++row) {
        make(row, slot(row));
        if (row > first && !take(row - 1, slot(std::max(row - 2, start)), slot(row - 1), slot(row)))
            return;
    }
    // The last row of all has nothing below it.
    if (end == count && end > first)
        take(end - 1, slot(std::max(end - 2, start)), slot(end - 1), slot(end - 1));
}

} // namespace vireo
