#pragma once

#include "imagefile/ColorDepth.h"
#include "imagefile/ImageResult.h"

#include <cstdint>

namespace vireo {

/// Where a picture's rows go, top row first: a picture in memory, or the next stage of the writer.
/// BeginImage once, then GetLineBuffer and LineDone for each row, then EndImage.
class CImageReceiver {
public:
    virtual ~CImageReceiver() = default;

    /// Announces a picture of `width` x `height` pixels at `resolution` dots per inch (0: not
    /// known). The last two arguments are 0; they keep a place for callers that have more to say.
    virtual ImageResult BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t height,
        std::uint32_t resolution, std::uint32_t reserved1, std::uint32_t reserved2) = 0;
    /// Where the next row is to be written: BytesPerRow(depth, width) bytes.
    virtual std::uint8_t* GetLineBuffer() = 0;
    /// How many rows from that one on, it included, may be written there at once, one behind the
    /// other without a gap, before LineDone is called for each of them.
    virtual std::uint32_t LinesAhead() const { return 1; }
    /// The row in the last line buffer is complete.
    virtual ImageResult LineDone() = 0;
    /// No more rows come; `status` is 0 when all went well.
    virtual ImageResult EndImage(std::uint32_t status) = 0;
};

} // namespace vireo
