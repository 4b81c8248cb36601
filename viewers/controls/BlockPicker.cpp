#include "viewers/controls/BlockPicker.h"

#include <algorithm>

namespace vireo {

namespace {

struct BlockView {
    BlockView(const BlockRow& blocks, std::size_t offset)
        : mean(blocks.mean.data() + offset),
          lowest(blocks.lowest.data() + offset),
          highest(blocks.highest.data() + offset)
    {
    }

    const std::uint8_t* mean;
    const std::uint8_t* lowest;
    const std::uint8_t* highest;
};

/// Differences below this are never worth more than the mean.
constexpr std::uint8_t kSmallestOutlier = 8;

/// Over the blocks around each block; entry i + 1 is that of block i.
struct Surroundings {
    std::uint8_t* darkest;
    std::uint8_t* lightest;
    std::uint8_t* calmest;
};

std::uint8_t Middle(std::uint8_t a, std::uint8_t b)
{
    return static_cast<std::uint8_t>((a + b + 1) >> 1);
}

/// a + b, but at most 255.
std::uint8_t SumOf(std::uint8_t a, std::uint8_t b)
{
    return static_cast<std::uint8_t>(a + LowerByte(b, static_cast<std::uint8_t>(255 - a)));
}

// All in bytes, sixteen at a time: in 16 bits it takes three times as long.
void PickValues(const std::uint8_t* __restrict means, const std::uint8_t* __restrict lows,
    const std::uint8_t* __restrict highs, const std::uint8_t* __restrict darkest,
    const std::uint8_t* __restrict lightest, const std::uint8_t* __restrict calmest,
    std::size_t count, std::uint8_t* __restrict values)
{
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint8_t mean = means[i];
        const std::uint8_t low = lows[i];
        const std::uint8_t high = highs[i];
        const std::uint8_t dark = LowerByte(LowerByte(darkest[i], darkest[i + 1]), darkest[i + 2]);
        const std::uint8_t light =
            HigherByte(HigherByte(lightest[i], lightest[i + 1]), lightest[i + 2]);
        const std::uint8_t calm = LowerByte(LowerByte(calmest[i], calmest[i + 1]), calmest[i + 2]);
        const std::uint8_t noise = SumOf(SumOf(calm, kSmallestOutlier), Middle(calm, 0));

        // An extreme is shown near by when a mean is within a quarter of the range from it. Each
        // one's distance from the mean, or 0 where it is shown.
        const std::uint8_t middle = Middle(low, high);
        const auto below = static_cast<std::uint8_t>(mean - low);
        const auto above = static_cast<std::uint8_t>(high - mean);
        const std::uint8_t lostDark = dark > Middle(low, middle) ? below : std::uint8_t{0};
        const std::uint8_t lostLight = light < Middle(high, middle) ? above : std::uint8_t{0};

        const std::uint8_t down =
            lostDark > HigherByte(noise, lostLight) ? lostDark : std::uint8_t{0};
        const std::uint8_t up =
            lostLight > HigherByte(noise, lostDark) ? lostLight : std::uint8_t{0};
        values[i] = static_cast<std::uint8_t>(mean - down + up);
    }
}

/// What three rows have at each block: the lowest or the highest of three entries.
template <typename Choose>
void OfThreeRows(const std::uint8_t* __restrict above, const std::uint8_t* __restrict here,
    const std::uint8_t* __restrict below, std::size_t count, const Choose& choose,
    std::uint8_t* __restrict out)
{
    for (std::size_t i = 0; i < count; ++i)
        out[i] = choose(choose(above[i], here[i]), below[i]);
}

/// The smallest range at each block of three rows.
void RangeOfThreeRows(const BlockView& above, const BlockView& here, const BlockView& below,
    std::size_t count, std::uint8_t* out)
{
    const auto run =
        [count](const std::uint8_t* __restrict lows0, const std::uint8_t* __restrict highs0,
            const std::uint8_t* __restrict lows1, const std::uint8_t* __restrict highs1,
            const std::uint8_t* __restrict lows2, const std::uint8_t* __restrict highs2,
            std::uint8_t* __restrict to) {
            for (std::size_t i = 0; i < count; ++i) {
                const auto first = static_cast<std::uint8_t>(highs0[i] - lows0[i]);
                const auto second = static_cast<std::uint8_t>(highs1[i] - lows1[i]);
                const auto third = static_cast<std::uint8_t>(highs2[i] - lows2[i]);
                to[i] = LowerByte(LowerByte(first, second), third);
            }
        };
    run(above.lowest, above.highest, here.lowest, here.highest, below.lowest, below.highest, out);
}

/// Joins the rows above, at and below; the entries at the ends double those beside them.
void JoinRows(const BlockView& above, const BlockView& here, const BlockView& below,
    std::size_t count, const Surroundings& out)
{
    OfThreeRows(above.mean, here.mean, below.mean, count, LowerByte, out.darkest + 1);
    OfThreeRows(above.mean, here.mean, below.mean, count, HigherByte, out.lightest + 1);
    RangeOfThreeRows(above, here, below, count, out.calmest + 1);
    for (std::uint8_t* const values : {out.darkest, out.lightest, out.calmest}) {
        values[0] = values[1];
        values[count + 1] = values[count];
    }
}

} // namespace

void BlockPicker::Pick(const BlockRow& above, const BlockRow& here, const BlockRow& below,
    std::size_t offset, std::size_t count, std::uint8_t* values)
{
    if (count == 0)
        return;
    for (std::vector<std::uint8_t>* const entries : {&m_darkest, &m_lightest, &m_calmest})
        entries->resize(count + 2);
    const Surroundings around{m_darkest.data(), m_lightest.data(), m_calmest.data()};
    JoinRows({above, offset}, {here, offset}, {below, offset}, count, around);
    const BlockView blocks(here, offset);
    PickValues(blocks.mean, blocks.lowest, blocks.highest, m_darkest.data(), m_lightest.data(),
        m_calmest.data(), count, values);
}

} // namespace vireo
