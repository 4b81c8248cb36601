#include "viewers/controls/BlockPicker.h"

#include <algorithm>

namespace vireo {

namespace {

// All in bytes, sixteen at a time: in 16 bits it takes three times as long.

constexpr std::uint8_t kYes = 255;
/// Differences below this are never worth more than the mean.
constexpr std::uint8_t kSmallestOutlier = 8;

std::uint8_t Mask(bool holds)
{
    return holds ? kYes : std::uint8_t{0};
}

std::uint8_t Distance(std::uint8_t a, std::uint8_t b)
{
    return static_cast<std::uint8_t>(HigherByte(a, b) - LowerByte(a, b));
}

/// a + b, but at most 255.
std::uint8_t SumOf(std::uint8_t a, std::uint8_t b)
{
    return static_cast<std::uint8_t>(a + LowerByte(b, static_cast<std::uint8_t>(255 - a)));
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

struct BlockView {
    BlockView(const BlockRow& blocks, std::size_t offset)
        : mean(blocks.mean.data() + offset),
          extreme(blocks.extreme.data() + offset)
    {
    }

    const std::uint8_t* mean;
    const std::uint8_t* extreme;
};

/// The smallest distance at each block of three rows.
void CalmestOfThreeRows(const BlockView& above, const BlockView& here, const BlockView& below,
    std::size_t count, std::uint8_t* out)
{
    const auto run =
        [count](const std::uint8_t* __restrict mean0, const std::uint8_t* __restrict extreme0,
            const std::uint8_t* __restrict mean1, const std::uint8_t* __restrict extreme1,
            const std::uint8_t* __restrict mean2, const std::uint8_t* __restrict extreme2,
            std::uint8_t* __restrict to) {
            for (std::size_t i = 0; i < count; ++i) {
                const std::uint8_t first = Distance(mean0[i], extreme0[i]);
                const std::uint8_t second = Distance(mean1[i], extreme1[i]);
                const std::uint8_t third = Distance(mean2[i], extreme2[i]);
                to[i] = LowerByte(LowerByte(first, second), third);
            }
        };
    run(above.mean, above.extreme, here.mean, here.extreme, below.mean, below.extreme, out);
}

/// A mean, and what its neighbours are compared with, as if dark was looked for.
struct Candidate {
    std::uint8_t mean;
    std::uint8_t more;     ///< The next larger value.
    std::uint8_t muchMore; ///< A step above the noise of means.

    /// Whether the mean lies below both of its neighbours, of one of them by the step. Of two alike
    /// only the first does.
    std::uint8_t LiesBelow(std::uint8_t before, std::uint8_t after) const
    {
        return Mask(before >= more) & Mask(after >= mean)
            & Mask(HigherByte(before, after) >= muchMore);
    }
};

/// Finds the blocks that are darker (or lighter, where their extreme is) than those left and right
/// of them, or than those above and below: a line that runs along two rows of blocks shall be
/// picked from the one that has more of it, or it would become twice as thick. `here` begins one
/// block earlier than all others.
void FindPeaks(const std::uint8_t* __restrict here, const std::uint8_t* __restrict above,
    const std::uint8_t* __restrict below, const std::uint8_t* __restrict extremes,
    std::size_t count, std::uint8_t* __restrict peaks)
{
    for (std::size_t i = 0; i < count; ++i) {
        // Where light is looked for, everything is turned over.
        const std::uint8_t turned = Mask(extremes[i] > here[i + 1]);
        const std::uint8_t mean = here[i + 1] ^ turned;
        // A 16th of the distance: a single pixel of 16 makes no less.
        const auto step = static_cast<std::uint8_t>((Distance(here[i + 1], extremes[i]) >> 4) | 1);
        const Candidate candidate{mean, SumOf(mean, 1), SumOf(mean, step)};
        peaks[i] = candidate.LiesBelow(here[i] ^ turned, here[i + 2] ^ turned)
            | candidate.LiesBelow(above[i] ^ turned, below[i] ^ turned);
    }
}

void PickValues(const std::uint8_t* __restrict means, const std::uint8_t* __restrict extremes,
    const std::uint8_t* __restrict darkest, const std::uint8_t* __restrict lightest,
    const std::uint8_t* __restrict calmest, const std::uint8_t* __restrict peaks, std::size_t count,
    std::uint8_t* __restrict values)
{
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint8_t dark = LowerByte(LowerByte(darkest[i], darkest[i + 1]), darkest[i + 2]);
        const std::uint8_t light =
            HigherByte(HigherByte(lightest[i], lightest[i + 1]), lightest[i + 2]);
        const std::uint8_t calm = LowerByte(LowerByte(calmest[i], calmest[i + 1]), calmest[i + 2]);

        // An extreme is shown near by when a mean is within a quarter of the way from it.
        const std::uint8_t mean = means[i];
        const std::uint8_t extreme = extremes[i];
        const std::uint8_t quarter = MiddleByte(extreme, MiddleByte(extreme, mean));
        const std::uint8_t isLight = Mask(extreme > mean);
        const std::uint8_t isHidden =
            (isLight & Mask(light < quarter)) | (~isLight & Mask(dark > quarter));

        // It must be far more than the noise around: almost three times that of the calmest block.
        const auto excess = static_cast<std::uint8_t>(
            HigherByte(Distance(mean, extreme), kSmallestOutlier) - kSmallestOutlier);
        const std::uint8_t half = MiddleByte(excess, 0);
        const std::uint8_t isFar = Mask(MiddleByte(half, MiddleByte(half, 0)) > calm);
        const std::uint8_t isPicked = isHidden & isFar & peaks[i];
        values[i] = (extreme & isPicked) | (mean & ~isPicked);
    }
}

} // namespace

void BlockPicker::Pick(const BlockRow& above, const BlockRow& here, const BlockRow& below,
    std::size_t offset, std::size_t count, std::uint8_t* values)
{
    if (count == 0)
        return;
    const BlockView rows[] = {{above, offset}, {here, offset}, {below, offset}};
    for (std::vector<std::uint8_t>* const entries : {&m_darkest, &m_lightest, &m_calmest})
        entries->resize(count + 2);
    OfThreeRows(rows[0].mean, rows[1].mean, rows[2].mean, count, LowerByte, m_darkest.data() + 1);
    OfThreeRows(rows[0].mean, rows[1].mean, rows[2].mean, count, HigherByte, m_lightest.data() + 1);
    CalmestOfThreeRows(rows[0], rows[1], rows[2], count, m_calmest.data() + 1);
    for (std::vector<std::uint8_t>* const entries : {&m_darkest, &m_lightest, &m_calmest}) {
        entries->front() = (*entries)[1];
        entries->back() = (*entries)[count];
    }

    // What is at the picture's edge has nothing beside it to be compared with.
    m_peaks.assign(count, kYes);
    if (&above != &here && &below != &here && count > 2)
        FindPeaks(rows[1].mean, rows[0].mean + 1, rows[2].mean + 1, rows[1].extreme + 1, count - 2,
            m_peaks.data() + 1);
    PickValues(rows[1].mean, rows[1].extreme, m_darkest.data(), m_lightest.data(), m_calmest.data(),
        m_peaks.data(), count, values);
}

} // namespace vireo
