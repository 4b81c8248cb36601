#include "viewers/picture/ReducedRows.h"

#include "viewers/controls/PicturePyramid.h"

#include <algorithm>

namespace vireo {

std::int64_t ReducedRows::Reduction() const
{
    return m_pyramid.Levels().front().reduction;
}

std::int64_t ReducedRows::CoveredRows() const
{
    return std::min(m_pyramid.RowsDone() * Reduction(), m_picture.CoveredRows());
}

void ReducedRows::Read(const PictureRect& rect, std::span<std::uint8_t> pixels) const
{
    const PicturePyramid::Level& level = m_pyramid.Levels().front();
    const std::int64_t planeBytes = level.width;
    const int channels = Channels();
    const std::int64_t covered = CoveredRows();
    std::uint8_t* out = pixels.data();
    for (std::int64_t row = rect.top; row < rect.top + rect.height; ++row) {
        if (row >= covered) {
            out = std::fill_n(out, rect.width * channels, kWhite);
            continue;
        }
        const std::uint8_t* const blocks = level.Row(row / level.reduction);
        for (std::int64_t column = rect.left; column < rect.left + rect.width; ++column) {
            const std::uint8_t* block = blocks + column / level.reduction;
            for (int channel = 0; channel < channels; ++channel, block += planeBytes)
                *out++ = *block;
        }
    }
}

} // namespace vireo
