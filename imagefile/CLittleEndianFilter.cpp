#include "imagefile/CLittleEndianFilter.h"

#include "imagefile/CDifferencingFilter.h"
#include "imagefile/TifPredictor.h"

#include <cstring>
#include <utility>

namespace vireo {

ImageResult CLittleEndianFilter::BeginImage(ColorDepth depth, std::uint32_t width,
    std::uint32_t height, std::uint32_t resolution, std::uint32_t reserved1,
    std::uint32_t reserved2)
{
    m_bSwaps = m_reader.Entries().order == ByteOrder::Big
        && (depth == ColorDepth::Gray16 || depth == ColorDepth::Rgb16);
    return CFilterBase::BeginImage(depth, width, height, resolution, reserved1, reserved2);
}

std::uint8_t* CLittleEndianFilter::GetLineBuffer()
{
    m_row = CFilterBase::GetLineBuffer();
    std::memset(m_row, 0, m_reader.RowBytes());
    return m_row;
}

ImageResult CLittleEndianFilter::LineDone()
{
    if (m_bSwaps) {
        // The reader has summed the differences up as if they were little-endian.
        const bool isDifferenced = m_reader.Predictor() == TifPage::kHorizontalDifferencing;
        if (isDifferenced)
            TakeDifferences(m_reader.Depth(), m_row, m_reader.Width());
        for (std::size_t i = 0; i + 1 < m_reader.RowBytes(); i += 2)
            std::swap(m_row[i], m_row[i + 1]);
        if (isDifferenced)
            UndoDifferencing(m_reader.Depth(), m_row, m_reader.Width());
    }
    return CFilterBase::LineDone();
}

} // namespace vireo
