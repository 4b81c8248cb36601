#include "viewers/picture/TiffDecodedRows.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

namespace vireo {

TiffDecodedRows::TiffDecodedRows(
    std::unique_ptr<CTIFReader> reader, const TiffPixels& pixels, std::int64_t keptRows)
    : TiffRows(pixels, reader->Width(), reader->Height()),
      m_reader(std::move(reader)),
      m_rowBytes(m_reader->RowBytes()),
      m_keptRows(std::min<std::int64_t>(keptRows, m_reader->Height()))
{
    m_reader->SetReceiver(*this);
}

TiffDecodedRows::~TiffDecodedRows() = default;

bool TiffDecodedRows::Allocate()
{
    const auto rows = static_cast<std::uint64_t>(m_keptRows);
    if (rows > std::numeric_limits<std::size_t>::max() / m_rowBytes)
        return false;
    try {
        m_memory = std::make_unique_for_overwrite<std::uint8_t[]>(
            static_cast<std::size_t>(rows) * m_rowBytes);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

std::uint8_t* TiffDecodedRows::RowAt(std::int64_t row) const
{
    return m_memory.get() + static_cast<std::size_t>(row % m_keptRows) * m_rowBytes;
}

/// Whether the row is as it was before it was decoded, which the reader turns over where 0 is
/// white.
bool TiffDecodedRows::IsBlank() const
{
    const std::uint8_t blank =
        Pixels().Depth() == ColorDepth::Bilevel && m_line[0] == 0xFF ? 0xFF : 0;
    return std::all_of(
        m_line, m_line + m_rowBytes, [blank](std::uint8_t byte) { return byte == blank; });
}

ImageResult TiffDecodedRows::LoadRow(std::int64_t row, bool& isThere)
{
    m_line = RowAt(row);
    std::fill_n(m_line, m_rowBytes, std::uint8_t{0});
    const ImageResult result = m_reader->ReadLine();
    if (result != ImageResult::Ok)
        isThere = !IsBlank();
    if (row + 1 == Height())
        std::ignore = m_reader->Close(0); // Nothing is left that could fail.
    return result;
}

const std::uint8_t* TiffDecodedRows::Bytes(
    std::int64_t row, std::uint64_t first, std::span<std::uint8_t>) const
{
    return RowAt(row) + first;
}

ImageResult TiffDecodedRows::BeginImage(
    ColorDepth, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t)
{
    return ImageResult::Ok;
}

std::uint8_t* TiffDecodedRows::GetLineBuffer()
{
    return m_line;
}

ImageResult TiffDecodedRows::LineDone()
{
    return ImageResult::Ok;
}

ImageResult TiffDecodedRows::EndImage(std::uint32_t)
{
    return ImageResult::Ok;
}

} // namespace vireo
