#include "imagefile/TifPageCheck.h"

namespace vireo {

namespace {

bool IsKnownCompression(std::uint16_t compression)
{
    switch (compression) {
    case TifCompression::kNone:
    case TifCompression::kModifiedHuffman:
    case TifCompression::kGroup4:
    case TifCompression::kLzw:
    case TifCompression::kPackBits:
        return true;
    default:
        return false;
    }
}

/// The fewest bits that a row takes in a file; of Group 4, where a repeated row takes a single bit,
/// what a row with something on it takes.
std::uint64_t FewestBitsOfRow(const TifPage& page)
{
    const std::uint64_t rowBytes = BytesPerRow(page.depth, page.width);
    switch (page.compression) {
    case TifCompression::kNone:
        return 8 * rowBytes;
    case TifCompression::kPackBits:
        return 2 * 8 * ((rowBytes + 127) / 128); // Two bytes repeat up to 128.
    case TifCompression::kModifiedHuffman:
        return 8 + 12 * (page.width / 2560); // The longest run's code.
    case TifCompression::kLzw:
        return 1 + 12 * (rowBytes / 3838); // The longest string's code.
    default:
        return 64;
    }
}

/// Whether a file so short can be what is left of this picture. A file that was cut off is read as
/// far as it goes, but nobody waits for billions of rows that a handful of bytes promises.
bool IsWorthReading(const TifPage& page, std::uint64_t fileBytes)
{
    constexpr std::uint64_t kSmallPictureBytes = 16 * 1024 * 1024;
    constexpr std::uint64_t kSmallestPart = 1024; ///< A 1024th of the picture will do.
    const std::uint64_t rowBytes = BytesPerRow(page.depth, page.width);
    if (rowBytes * page.height <= kSmallPictureBytes)
        return true;
    return FewestBitsOfRow(page) * page.height / 8 / kSmallestPart <= fileBytes;
}

} // namespace

ImageResult CheckTifPage(const TifPage& page, std::uint64_t fileBytes)
{
    if (!IsKnownCompression(page.compression))
        return ImageResult::UnsupportedTifFormat;
    if (page.width == 0 || page.height == 0)
        return ImageResult::TifFormatError;
    const std::uint32_t rowsPerStrip = page.RowsPerStrip();
    const std::uint32_t strips = page.height / rowsPerStrip + (page.height % rowsPerStrip != 0);
    if (page.strips.Count() < strips)
        return ImageResult::TifFormatError;
    if (BytesPerRow(page.depth, page.width) > TifPage::kMaxRowBytes)
        return ImageResult::UnsupportedTifFormat;
    return IsWorthReading(page, fileBytes) ? ImageResult::Ok : ImageResult::CantReadTif;
}

} // namespace vireo
