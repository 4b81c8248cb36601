#pragma once

#include "platform/PositionalFile.h"
#include "viewers/controls/PictureRows.h"
#include "viewers/stitch/RunLengthIndex.h"

#include <cstdint>

namespace vireo {

/// Where a stitch picture's data lie, and how large the picture is said to be.
struct StitchLayout {
    std::uint64_t offset = 0;
    std::uint64_t length = 0; ///< Bytes from the offset to the end of the file.
    std::int64_t width = 0;   ///< Pixels; neither is negative.
    std::int64_t height = 0;
};

/// A stitch picture of run-length codes, of which an index of the rows is kept and no pixel. Black
/// runs lie on white; what runs past the picture's width or height is not there.
class StitchRunRows : public PictureRows {
public:
    StitchRunRows(PositionalFile file, const StitchLayout& layout);

    /// Reads all codes once, to find the rows; to be called before anything else. False when
    /// cancelled.
    bool BuildIndex(WorkProgress& progress);
    const RunLengthIndex& Index() const { return m_index; }

    std::int64_t Width() const override { return m_layout.width; }
    std::int64_t Height() const override { return m_layout.height; }
    int Channels() const override { return kGray; }
    std::int64_t CoveredRows() const override { return m_index.RowsFound(); }
    bool IsCheap() const override;
    void Read(const PictureRect& rect, std::span<std::uint8_t> pixels) const override;

private:
    PositionalFile m_file;
    StitchLayout m_layout;
    RunLengthIndex m_index;
};

} // namespace vireo
