#pragma once

#include "imagefile/ImageResult.h"
#include "platform/WorkProgress.h"
#include "viewers/controls/PictureRows.h"
#include "viewers/picture/RowRange.h"
#include "viewers/picture/TiffPixels.h"

#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

namespace vireo {

/// The rows of one page of a TIFF file, shown as gray values or colours. They become available from
/// the top on while a thread loads them; other threads may look at those that are.
///
/// What a row does not give behind a fault is 0, as the reader has it; a row of which nothing could
/// be read is white.
class TiffRows : public PictureRows {
public:
    TiffRows(const TiffPixels& pixels, std::int64_t width, std::int64_t height)
        : m_pixels(pixels),
          m_width(width),
          m_height(height)
    {
    }
    TiffRows(const TiffRows&) = delete;
    TiffRows& operator=(const TiffRows&) = delete;

    const TiffPixels& Pixels() const { return m_pixels; }

    // From any thread.
    std::int64_t Width() const override { return m_width; }
    std::int64_t Height() const override { return m_height; }
    int Channels() const override { return m_pixels.Channels(); }
    /// The rows behind this one are not available yet; once all are loaded, they are not in the
    /// file.
    std::int64_t CoveredRows() const override { return m_covered.load(std::memory_order_acquire); }
    void Read(const PictureRect& rect, std::span<std::uint8_t> pixels) const override;
    /// The rows before CoveredRows of which nothing could be read, from the top on.
    std::vector<RowRange> MissingRows() const;
    /// The samples of a pixel of an available row; nothing outside.
    std::optional<PixelSamples> SamplesAt(std::int64_t column, std::int64_t row) const;
    /// How many rows loading has gone through.
    std::int64_t LoadedRows() const { return m_loaded.load(std::memory_order_acquire); }

    /// Loads the rows before `end` that are not yet, unless it is cancelled. May be called from
    /// several threads, which then wait for each other.
    void Load(std::int64_t end, const WorkProgress& progress);
    /// What the first row that failed came to; to be asked when nothing is being loaded.
    ImageResult Result() const { return m_result; }

protected:
    /// Loads a row, which is the one behind the last call's. `isThere` tells whether any of a row
    /// that fails could be read.
    virtual ImageResult LoadRow(std::int64_t row, bool& isThere) = 0;
    /// Bytes of a covered row from byte `first` on: as many as `buffer` has room for. The result
    /// points into the buffer or to where the bytes lie.
    virtual const std::uint8_t* Bytes(
        std::int64_t row, std::uint64_t first, std::span<std::uint8_t> buffer) const = 0;

private:
    void AddMissing(std::int64_t row);
    std::vector<RowRange> MissingWithin(RowRange rows) const;

    const TiffPixels m_pixels;
    const std::int64_t m_width;
    const std::int64_t m_height;
    std::atomic<std::int64_t> m_covered = 0;
    std::atomic<std::int64_t> m_loaded = 0;
    std::mutex m_loading;
    ImageResult m_result = ImageResult::Ok;
    mutable std::mutex m_missingMutex;
    std::vector<RowRange> m_missing; ///< Those behind the last covered row included.
    std::atomic<bool> m_isAnyMissing = false;
};

} // namespace vireo
