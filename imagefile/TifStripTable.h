#pragma once

#include "platform/ByteReader.h"
#include "platform/PositionalFile.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace vireo {

/// The offsets of a page's strips. They are read from the file piece by piece as the rows are, so
/// that a picture of a hundred million strips costs no more memory than one of a single strip.
class TifStripTable {
public:
    TifStripTable() = default;
    /// A table of `count` entries of 2 or 4 bytes at `offset` in the file.
    TifStripTable(std::uint64_t offset, std::uint32_t count, unsigned entryBytes, ByteOrder order);

    std::uint32_t Count() const { return m_count; }

    /// The offset of a strip in the file, 0-based; nothing when the file has become shorter.
    std::optional<std::uint64_t> Offset(const PositionalFile& file, std::uint32_t strip);

private:
    bool ReadPiece(const PositionalFile& file, std::uint32_t strip);

    std::uint64_t m_offset = 0;
    std::uint32_t m_count = 0;
    unsigned m_entryBytes = 4;
    ByteOrder m_order = ByteOrder::Little;
    std::array<std::uint8_t, 4096> m_piece{};
    std::uint32_t m_pieceFirst = 0;
    std::uint32_t m_pieceCount = 0;
};

} // namespace vireo
