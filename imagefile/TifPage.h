#pragma once

#include "imagefile/ColorDepth.h"
#include "imagefile/ImageResult.h"
#include "imagefile/TifStripTable.h"
#include "platform/ByteReader.h"
#include "platform/PositionalFile.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

namespace vireo {

/// The compressions that a page can be read with, by their codes in the file.
namespace TifCompression {
inline constexpr std::uint16_t kNone = 1;
inline constexpr std::uint16_t kModifiedHuffman = 2;
inline constexpr std::uint16_t kGroup3 = 3; ///< Refused.
inline constexpr std::uint16_t kGroup4 = 4;
inline constexpr std::uint16_t kLzw = 5;
inline constexpr std::uint16_t kPackBits = 32773;

/// Whether it codes runs of white and black pixels.
constexpr bool IsCcitt(std::uint16_t compression)
{
    return compression == kModifiedHuffman || compression == kGroup4;
}
} // namespace TifCompression

/// What the entries of one page say.
struct TifPage {
    /// Wide-format pictures stay far below.
    static constexpr std::uint64_t kMaxRowBytes = 64 * 1024 * 1024;
    static constexpr std::uint16_t kWhiteIsZero = 0;
    static constexpr std::uint16_t kNoPhotometric = 0xffff; ///< The page does not say.
    static constexpr std::uint16_t kHorizontalDifferencing = 2;

    static constexpr std::size_t kColorMapValues = 768;

    struct Color {
        std::uint8_t red = 0, green = 0, blue = 0;
    };

    ByteOrder order = ByteOrder::Little; ///< Of the file, and so of its 16-bit samples.
    std::uint32_t width = 0;             ///< Pixels.
    std::uint32_t height = 0;            ///< Rows.
    ColorDepth depth = ColorDepth::Bilevel;
    std::uint16_t compression = TifCompression::kNone;
    std::uint16_t photometric = kNoPhotometric;
    std::uint16_t predictor = 1;
    std::uint32_t rowsPerStrip = 0;    ///< As said; 0: not said.
    std::uint32_t resolution = 0;      ///< Dots per inch; 0: not known.
    std::uint32_t colorMapEntries = 0; ///< 0 or 256.
    std::array<Color, 256> colorMap;
    /// The colour map as it stands in the file: all reds, all greens, all blues.
    std::array<std::uint16_t, kColorMapValues> colorMapValues;
    std::string description; ///< Bytes as stored.
    TifStripTable strips;

    /// All rows are one strip where the page does not say.
    std::uint32_t RowsPerStrip() const { return rowsPerStrip == 0 ? height : rowsPerStrip; }
};

/// Reads the entries of the page at `position` in a file, which is moved behind the last entry.
/// An ICC profile is copied to `iccFile` unless that is empty. The page is checked: its rows fit
/// the limits, every row has a strip, and the file is not far too short for the picture.
ImageResult ReadTifPage(const PositionalFile& file, ByteOrder order, std::uint64_t& position,
    const std::filesystem::path& iccFile, TifPage& page);

} // namespace vireo
