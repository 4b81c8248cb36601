#pragma once

#include "imagefile/CImageReceiver.h"
#include "imagefile/CTIFReader.h"
#include "viewers/picture/TiffRows.h"

#include <memory>

namespace vireo {

/// Rows that are decoded from top to bottom and kept in memory as the reader delivers them: all of
/// them, or so many that the last ones can still be looked at by whoever loads them.
class TiffDecodedRows : public TiffRows, private CImageReceiver {
public:
    /// The reader has the page open. `keptRows` is at least 1; when it is less than the height,
    /// only the loading thread may read rows, and only the last `keptRows`.
    TiffDecodedRows(
        std::unique_ptr<CTIFReader> reader, const TiffPixels& pixels, std::int64_t keptRows);
    ~TiffDecodedRows() override;

    /// Takes the memory; false when there is none.
    bool Allocate();

private:
    ImageResult LoadRow(std::int64_t row, bool& isThere) override;
    const std::uint8_t* Bytes(
        std::int64_t row, std::uint64_t first, std::span<std::uint8_t> buffer) const override;

    ImageResult BeginImage(ColorDepth, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t,
        std::uint32_t) override;
    std::uint8_t* GetLineBuffer() override;
    ImageResult LineDone() override;
    ImageResult EndImage(std::uint32_t) override;

    std::uint8_t* RowAt(std::int64_t row) const;
    bool IsBlank() const;

    std::unique_ptr<CTIFReader> m_reader;
    std::size_t m_rowBytes;
    std::int64_t m_keptRows;
    std::unique_ptr<std::uint8_t[]> m_memory;
    std::uint8_t* m_line = nullptr; ///< The row being decoded.
};

} // namespace vireo
