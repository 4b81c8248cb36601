#include "viewers/controls/LevelMaker.h"

#include "viewers/controls/PictureRows.h"

#include <algorithm>
#include <array>
#include <bit>

namespace vireo {

LevelMaker::LevelMaker(std::int64_t sourceWidth, int channels, std::int64_t reduction)
    : m_sourceWidth(static_cast<std::size_t>(sourceWidth)),
      m_channels(static_cast<std::size_t>(channels)),
      m_width(static_cast<std::size_t>((sourceWidth + reduction - 1) / reduction)),
      m_paddedWidth(m_width * static_cast<std::size_t>(reduction)),
      m_halvings(std::countr_zero(static_cast<std::uint64_t>(reduction))),
      m_sums(m_paddedWidth * m_channels)
{
}

void LevelMaker::Make(std::span<const std::uint8_t* const> rows, BlockRow& blocks)
{
    for (std::size_t channel = 0; channel < m_channels; ++channel) {
        std::array<const std::uint8_t*, kMostBlockRows> of;
        for (std::size_t i = 0; i < rows.size(); ++i)
            of[i] = rows[i] + channel * m_sourceWidth;
        const std::size_t offset = channel * m_paddedWidth;
        SumUpRows(std::span(of).first(rows.size()), m_sourceWidth, m_sums, offset);
        // The last block is filled up with the last column.
        for (std::vector<std::uint8_t>* const entries :
            {&m_sums.mean, &m_sums.lowest, &m_sums.highest}) {
            std::uint8_t* const end = entries->data() + offset + m_sourceWidth;
            std::fill_n(end, m_paddedWidth - m_sourceWidth, end[-1]);
        }
    }
    m_halver.Halve(m_sums, m_paddedWidth * m_channels, m_halvings);
    std::copy_n(m_sums.mean.begin(), BlockCount(), blocks.mean.begin());
    FindExtremes(m_sums, BlockCount(), blocks.extreme.data());
}

void LevelMaker::MakeWhite(BlockRow& blocks)
{
    std::fill(blocks.mean.begin(), blocks.mean.end(), PictureRows::kWhite);
    std::fill(blocks.extreme.begin(), blocks.extreme.end(), PictureRows::kWhite);
}

void LevelMaker::Pick(
    const BlockRow& above, const BlockRow& here, const BlockRow& below, std::uint8_t* pixels)
{
    for (std::size_t channel = 0; channel < m_channels; ++channel)
        m_picker.Pick(above, here, below, channel * m_width, m_width, pixels + channel * m_width);
}

} // namespace vireo
