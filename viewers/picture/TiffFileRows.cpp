#include "viewers/picture/TiffFileRows.h"

#include <algorithm>

namespace vireo {

bool TiffFileRows::CanRead(const TifPage& page)
{
    return page.compression == TifCompression::kNone
        && page.predictor != TifPage::kHorizontalDifferencing;
}

TiffFileRows::TiffFileRows(const TifPage& page, const TiffPixels& pixels)
    : TiffRows(pixels, page.width, page.height),
      m_rowBytes(BytesPerRow(page.depth, page.width)),
      m_rowsPerStrip(page.RowsPerStrip()),
      m_isInverted(page.depth == ColorDepth::Bilevel && page.photometric == TifPage::kWhiteIsZero),
      m_strips(page.strips)
{
}

FileStatus TiffFileRows::Open(const std::filesystem::path& path)
{
    return m_file.Open(path);
}

std::optional<std::uint64_t> TiffFileRows::Offset(std::int64_t row) const
{
    const std::lock_guard lock(m_stripsMutex);
    const auto strip = static_cast<std::uint32_t>(row / m_rowsPerStrip);
    const std::optional<std::uint64_t> offset = m_strips.Offset(m_file, strip);
    if (!offset)
        return std::nullopt;
    return *offset + static_cast<std::uint64_t>(row % m_rowsPerStrip) * m_rowBytes;
}

ImageResult TiffFileRows::LoadRow(std::int64_t row, bool& isThere)
{
    const std::optional<std::uint64_t> offset = Offset(row);
    if (!offset)
        return ImageResult::CantSeekTif;
    isThere = *offset < m_file.Size();
    return isThere && m_rowBytes <= m_file.Size() - *offset ? ImageResult::Ok
                                                            : ImageResult::CantReadTif;
}

const std::uint8_t* TiffFileRows::Bytes(
    std::int64_t row, std::uint64_t first, std::span<std::uint8_t> buffer) const
{
    const std::optional<std::uint64_t> offset = Offset(row);
    const std::size_t count = offset ? m_file.ReadAt(*offset + first, buffer) : 0;
    std::fill(buffer.begin() + static_cast<std::ptrdiff_t>(count), buffer.end(), std::uint8_t{0});
    if (m_isInverted) {
        for (std::uint8_t& byte : buffer)
            byte = static_cast<std::uint8_t>(~byte);
    }
    return buffer.data();
}

} // namespace vireo
