#pragma once

#include "imagefile/ImageResult.h"
#include "testfile/CameraDescription.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iosfwd>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace vireo {

/// What CPicture::Alloc throws; its text is for the user.
class CPictureException : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A scan picture in memory: its pixels in one piece, line after line, top line first, and how many
/// pixels of a line each camera delivered.
class CPicture {
public:
    /// Picture types.
    static constexpr std::uint32_t PIC_BW = 0; ///< 1 bit a pixel, most significant first; 1: white.
    static constexpr std::uint32_t PIC_GRAY = 1;  ///< 1 byte a pixel.
    static constexpr std::uint32_t PIC_RGB = 2;   ///< Red, green, blue, one byte each.
    static constexpr std::uint32_t PIC_RGB16 = 3; ///< The same with 16 bits each.
    static constexpr std::uint32_t PIC_UNDEFINED = 4;

    CPicture() = default;
    CPicture(const CPicture& other);
    CPicture& operator=(const CPicture& other);
    ~CPicture() = default;

    CameraCounts m_BiC{};           ///< Pixels a line by the cameras A to H.
    std::int32_t m_iWidth = 0;      ///< Pixels a line.
    std::int32_t m_iWidth3 = 0;     ///< Bytes of a line of PIC_RGB.
    std::int32_t m_iHeight = 0;     ///< Lines.
    std::int32_t m_iResolution = 0; ///< Dots per inch.
    std::uint32_t m_PicData = PIC_UNDEFINED;

    /// Frees what was held and makes `length` zero bytes. Throws CPictureException for a length
    /// below 1 and when there is no memory; then nothing is held. None of them are data yet.
    void Alloc(std::int64_t length);
    /// Takes everything from another picture. When that has no data, false: the pixels held here
    /// stay, though they no longer count as data.
    bool CopyFrom(const CPicture& other);

    std::int64_t BufferLength() const { return m_iBufferLength; } ///< Bytes held.
    std::int64_t DataLength() const { return m_iDataLength; }     ///< Bytes of picture data.
    /// Says how much of the buffer has been filled; at most all of it.
    void SetDataLength(std::int64_t length)
    {
        m_iDataLength = std::clamp(length, std::int64_t{0}, m_iBufferLength);
    }
    std::span<std::uint8_t> Pixels() { return {m_ptrBuffer.get(), HeldBytes()}; }
    std::span<const std::uint8_t> Pixels() const { return {m_ptrBuffer.get(), HeldBytes()}; }
    /// Bytes of a line by type and width; 0 for a type that has no pixels.
    std::int64_t LinePitch() const;

    /// Not finite when the resolution is 0.
    double PixelsToMillimetres(double pixels) const;

    /// Writes the block "[PictureInfo]"; nothing when there is no stream. PIC_RGB16 gets no type
    /// line, so that it reads back as PIC_RGB: readers of old know no other.
    void WriteInfo(std::ostream* stream) const;
    /// Reads the block from an INI-style file. A number that is missing is -1, a camera's count is
    /// then looked for under its older key, "m_iA" to "m_iH". The pixels stay as they are.
    void ReadInfo(const std::filesystem::path& file);

    /// Reads a page, counted from 1, of a TIFF: bilevel, gray, RGB or 16-bit RGB, the latter in the
    /// file's byte order. UnsupportedTifFormat for other pixels, TifOutOfMemory for a picture above
    /// the limit of MostPictureBytes. After any of these the picture is as before.
    ///
    /// Lines that cannot be decoded stay as far as they came, and the result is Ok all the same;
    /// `lines`, if given, takes the first line's failure.
    ImageResult LoadTiff(
        const std::filesystem::path& file, std::uint32_t page = 1, ImageResult* lines = nullptr);
    /// Writes a TIFF with the camera counts in its description, completely or not at all.
    /// Compression and predictor are the codes of TIFF files; `profile` is the name of an ICC
    /// profile, empty for none. InvalidTiffArguments when there are fewer pixels than the fields
    /// say.
    ImageResult SaveTiff(const std::filesystem::path& file, std::uint16_t compression,
        std::uint16_t predictor = 1, const std::filesystem::path& profile = {}) const;

    // Dark lines on a brighter ground, in gray and RGB pictures; of RGB the mean of the three
    // counts. Columns and rows are counted from 0, `end` is behind the last one searched, and all
    // of them are clipped to the picture. See FindDarkLine for what is a line and where its centre
    // lies.

    /// The row of the first horizontal line from `iStartRow` down, at one column.
    std::optional<std::int32_t> FindHorizontalLineAtPixelColumn(
        std::int32_t iColumn, std::int32_t iStartRow, std::int32_t iEndRow) const;
    /// The same line's centre, to a fraction of a row.
    std::optional<double> FindCenterOfHorizontalLine(
        std::int32_t iColumn, std::int32_t iStartRow, std::int32_t iEndRow) const;
    /// The column of the first vertical line from `iStartColumn` to the right, in one row.
    std::optional<std::int32_t> FindVerticalLineAtPixelRow(
        std::int32_t iRow, std::int32_t iStartColumn, std::int32_t iEndColumn) const;
    /// The same line's centre, to a fraction of a column. A negative row or start is logged, and
    /// nothing is found.
    std::optional<double> FindCenterOfVerticalLine(
        std::int32_t iSearchRow, std::int32_t iStartColumn, std::int32_t iEndColumn) const;

private:
    class CMyReceiver;

    /// From calloc, which need not touch the memory that a damaged file only claims to fill.
    struct FreeMemory {
        void operator()(std::uint8_t* memory) const { std::free(memory); }
    };
    using Buffer = std::unique_ptr<std::uint8_t[], FreeMemory>;
    static Buffer MakeBuffer(std::int64_t length);

    /// Pixels of a column or a row.
    struct Stretch {
        std::int64_t firstByte = 0;
        std::int64_t step = 0;  ///< Bytes from pixel to pixel.
        std::int64_t count = 0; ///< Pixels; not positive when it lies outside the picture.
        std::int32_t start = 0; ///< Row or column of the first pixel.
    };
    /// A line's place in rows or columns.
    struct Line {
        std::int32_t darkest;
        double centre;
    };

    std::size_t HeldBytes() const { return static_cast<std::size_t>(m_iBufferLength); }
    bool HasBrightness() const { return m_PicData == PIC_GRAY || m_PicData == PIC_RGB; }
    bool CheckBrightness(std::string_view function) const;
    Stretch ColumnStretch(std::int32_t column, std::int32_t start, std::int32_t end) const;
    Stretch RowStretch(std::int32_t row, std::int32_t start, std::int32_t end) const;
    std::vector<double> Profile(const Stretch& stretch) const;
    std::optional<Line> FindLine(const Stretch& stretch) const;

    // 64 bits, although a picture's description counts with 32: wide-format scans pass 2 GiB.
    std::int64_t m_iBufferLength = 0;
    std::int64_t m_iDataLength = 0;
    Buffer m_ptrBuffer;
};

} // namespace vireo
