#pragma once

#include "platform/PositionalFile.h"
#include "viewers/controls/PictureRows.h"

#include <cstdint>

namespace vireo {

/// Where the pixels of a plain picture lie in a file, and how large it is said to be.
struct PlainPicture {
    std::uint64_t offset = 0;
    std::uint64_t length = 0; ///< Bytes from the offset to the end of the data.
    std::int64_t width = 0;   ///< Pixels; neither is negative.
    std::int64_t height = 0;
    int channels = PictureRows::kGray;
};

/// A picture of bytes, row after row, pixel after pixel. A row is read from the file when it is
/// looked at; behind the end of the data the picture is white.
class PlainRows : public PictureRows {
public:
    PlainRows(PositionalFile file, const PlainPicture& picture);

    std::int64_t Width() const override { return m_picture.width; }
    std::int64_t Height() const override { return m_picture.height; }
    int Channels() const override { return m_picture.channels; }
    std::int64_t CoveredRows() const override;
    void Read(const PictureRect& rect, std::span<std::uint8_t> pixels) const override;

private:
    std::int64_t RowBytes() const { return m_picture.width * m_picture.channels; }
    /// Reads bytes that lie one behind the other in the file.
    void ReadStretch(std::int64_t firstByte, std::span<std::uint8_t> bytes) const;

    PositionalFile m_file;
    PlainPicture m_picture;
};

} // namespace vireo
