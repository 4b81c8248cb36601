#pragma once

#include "imagefile/TifPage.h"
#include "platform/PositionalFile.h"
#include "viewers/picture/TiffRows.h"

#include <filesystem>
#include <mutex>

namespace vireo {

/// Rows that lie uncompressed in the file and are read where they are looked at. Loading only finds
/// out which of them are there, and costs a little a strip.
class TiffFileRows : public TiffRows {
public:
    /// Whether the rows of a page can be read so.
    static bool CanRead(const TifPage& page);

    TiffFileRows(const TifPage& page, const TiffPixels& pixels);

    FileStatus Open(const std::filesystem::path& path);

private:
    /// Where a row begins in the file; nothing when the table of strips has no such entry.
    std::optional<std::uint64_t> Offset(std::int64_t row) const;

    ImageResult LoadRow(std::int64_t row, bool& isThere) override;
    const std::uint8_t* Bytes(
        std::int64_t row, std::uint64_t first, std::span<std::uint8_t> buffer) const override;

    PositionalFile m_file;
    std::uint64_t m_rowBytes;
    std::int64_t m_rowsPerStrip;
    bool m_isInverted; ///< Bilevel, 0 is white.
    mutable std::mutex m_stripsMutex;
    mutable TifStripTable m_strips; ///< Keeps the piece of the table that it read last.
};

} // namespace vireo
