#include "viewers/controls/PlainRows.h"

#include <algorithm>
#include <utility>

namespace vireo {

PlainRows::PlainRows(PositionalFile file, const PlainPicture& picture)
    : m_file(std::move(file)),
      m_picture(picture)
{
}

std::int64_t PlainRows::CoveredRows() const
{
    const auto rowBytes = static_cast<std::uint64_t>(RowBytes());
    if (rowBytes == 0)
        return 0;
    const std::uint64_t rows =
        m_picture.length / rowBytes + (m_picture.length % rowBytes != 0 ? 1 : 0);
    return std::min(static_cast<std::int64_t>(rows), m_picture.height);
}

void PlainRows::ReadStretch(std::int64_t firstByte, std::span<std::uint8_t> bytes) const
{
    const auto first = static_cast<std::uint64_t>(firstByte);
    std::size_t count = 0;
    if (first < m_picture.length) {
        const auto there = std::min<std::uint64_t>(bytes.size(), m_picture.length - first);
        count =
            m_file.ReadAt(m_picture.offset + first, bytes.first(static_cast<std::size_t>(there)));
    }
    std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(count), bytes.end(), kWhite);
}

void PlainRows::Read(const PictureRect& rect, std::span<std::uint8_t> pixels) const
{
    const std::int64_t first = rect.top * RowBytes() + rect.left * m_picture.channels;
    if (rect.width == m_picture.width || rect.height == 1)
        return ReadStretch(first, pixels);
    const auto bytes = static_cast<std::size_t>(rect.width * m_picture.channels);
    for (std::int64_t row = 0; row < rect.height; ++row)
        ReadStretch(
            first + row * RowBytes(), pixels.subspan(static_cast<std::size_t>(row) * bytes, bytes));
}

} // namespace vireo
