#include "imagefile/TifStripTable.h"

#include <algorithm>

namespace vireo {

TifStripTable::TifStripTable(
    std::uint64_t offset, std::uint32_t count, unsigned entryBytes, ByteOrder order)
    : m_offset(offset),
      m_count(count),
      m_entryBytes(entryBytes),
      m_order(order)
{
}

bool TifStripTable::ReadPiece(const PositionalFile& file, std::uint32_t strip)
{
    const std::size_t most =
        std::min<std::size_t>(m_count - strip, m_piece.size() / m_entryBytes) * m_entryBytes;
    const std::size_t count =
        file.ReadAt(m_offset + std::uint64_t{strip} * m_entryBytes, {m_piece.data(), most});
    m_pieceFirst = strip;
    m_pieceCount = static_cast<std::uint32_t>(count / m_entryBytes);
    return m_pieceCount != 0;
}

std::optional<std::uint64_t> TifStripTable::Offset(const PositionalFile& file, std::uint32_t strip)
{
    if (strip >= m_count)
        return std::nullopt;
    // Unsigned: a strip before the piece is far behind it.
    if (strip - m_pieceFirst >= m_pieceCount && !ReadPiece(file, strip))
        return std::nullopt;
    ByteReader reader({m_piece.data(), m_piece.size()}, m_order);
    reader.Seek(std::size_t{strip - m_pieceFirst} * m_entryBytes);
    return m_entryBytes == 2 ? std::uint64_t{*reader.ReadU16()} : std::uint64_t{*reader.ReadU32()};
}

} // namespace vireo
