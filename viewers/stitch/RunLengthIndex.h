#pragma once

#include "platform/PositionalFile.h"
#include "platform/WorkProgress.h"

#include <cstdint>
#include <span>
#include <vector>

namespace vireo {

/// Where the run-length codes of a stitch picture lie in its file.
struct RunLengthData {
    const PositionalFile* file = nullptr;
    std::uint64_t offset = 0;
    std::uint64_t length = 0; ///< Bytes, one code each.

    /// Reads the codes from `position` on into `codes`; fewer at the end.
    std::span<std::uint8_t> Read(std::uint64_t position, std::span<std::uint8_t> codes) const;
};

/// One run-length code: 0 ends a row; else the low seven bits are the pixels of a run, which is
/// white when the highest bit is set and black when not.
struct RunCode {
    static constexpr std::uint8_t kEndOfRow = 0;
    static constexpr std::uint8_t kWhiteBit = 0x80;

    static std::int64_t Pixels(std::uint8_t code) { return code & 0x7F; }
    static bool IsBlack(std::uint8_t code) { return (code & kWhiteBit) == 0; }
};

/// Finds rows among run-length codes: for every block of codes, which row and pixel it begins at.
///
/// It takes 1/1000 of the codes' bytes and never more than a few megabytes, whatever the rows are
/// like; finding a row is reading one block.
class RunLengthIndex {
public:
    /// What the first code of a block draws at.
    struct Mark {
        std::int64_t row = 0;
        std::int64_t x = 0;
    };

    /// Reads the codes once, as far as they belong to the first `rows` rows. False when cancelled.
    bool Build(const RunLengthData& data, std::int64_t rows, WorkProgress& progress);

    /// Rows that have codes, of those asked for.
    std::int64_t RowsFound() const { return m_rowsFound; }
    /// Codes a block; the last block may have fewer.
    std::uint64_t BlockBytes() const { return m_blockBytes; }
    const std::vector<Mark>& Marks() const { return m_marks; }

    /// The block in which the codes of a row begin, for a row that was found.
    std::size_t BlockOf(std::int64_t row) const;

private:
    std::uint64_t m_blockBytes = 0;
    std::vector<Mark> m_marks;
    std::int64_t m_rowsFound = 0;
};

} // namespace vireo
