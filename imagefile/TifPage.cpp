#include "imagefile/TifPage.h"

#include "imagefile/TifEntry.h"
#include "imagefile/TifPageCheck.h"
#include "imagefile/TifProfile.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <vector>

namespace vireo {

namespace {

// What a page may ask for at most. Wide-format pictures stay far below.
constexpr std::uint32_t kMaxDescriptionBytes = 1024 * 1024;

using Tag = TifTag;
using Type = TifType;

/// Reads the entries of one page one after the other. Every function returns the code of the first
/// thing that is wrong.
class PageParser {
public:
    PageParser(const TifBytes& bytes, const std::filesystem::path& iccFile, TifPage& page)
        : m_bytes(bytes),
          m_iccFile(iccFile),
          m_page(page)
    {
    }

    ImageResult ReadEntries(std::uint64_t& position);

private:
    ImageResult Take(const TifEntry& entry);
    ImageResult TakeSize(const TifEntry& entry, std::uint32_t& size) const;
    ImageResult TakeShort(const TifEntry& entry, std::uint16_t& value) const;
    ImageResult TakeBitsPerSample(const TifEntry& entry);
    ImageResult TakeDescription(const TifEntry& entry);
    ImageResult TakeStripOffsets(const TifEntry& entry);
    ImageResult TakeStripByteCounts(const TifEntry& entry) const;
    ImageResult TakeResolution(const TifEntry& entry, TifRational& resolution) const;
    ImageResult TakePlanarConfiguration(const TifEntry& entry) const;
    ImageResult TakeResolutionUnit(const TifEntry& entry);
    ImageResult TakePredictor(const TifEntry& entry);
    ImageResult TakeColorMap(const TifEntry& entry);
    std::uint32_t ResolutionInDpi() const;

    const TifBytes& m_bytes;
    const std::filesystem::path& m_iccFile;
    TifPage& m_page;
    TifRational m_resolution;
    std::uint16_t m_resolutionUnit = 2;
};

ImageResult PageParser::ReadEntries(std::uint64_t& position)
{
    std::array<std::uint8_t, 2> countBytes;
    if (!m_bytes.ReadAll(position, countBytes))
        return ImageResult::CantReadTif;
    position += countBytes.size();
    std::uint32_t left = *ByteReader(countBytes, m_bytes.Order()).ReadU16();
    for (Tag previous{}; left != 0; --left) {
        TifEntry entry;
        if (!m_bytes.ReadEntry(position, entry))
            return ImageResult::CantReadTif;
        position += TifEntry::kBytes;
        if (entry.tag <= previous)
            return ImageResult::TifFormatError;
        previous = entry.tag;
        if (const ImageResult result = Take(entry); result != ImageResult::Ok)
            return result;
    }
    m_page.resolution = ResolutionInDpi();
    return ImageResult::Ok;
}

ImageResult PageParser::Take(const TifEntry& entry)
{
    TifRational ignored;
    switch (entry.tag) {
    case Tag::ImageWidth:
        return TakeSize(entry, m_page.width);
    case Tag::ImageLength:
        return TakeSize(entry, m_page.height);
    case Tag::BitsPerSample:
        return TakeBitsPerSample(entry);
    case Tag::Compression:
        return TakeShort(entry, m_page.compression);
    case Tag::Photometric:
        return TakeShort(entry, m_page.photometric);
    case Tag::ImageDescription:
        return TakeDescription(entry);
    case Tag::StripOffsets:
        return TakeStripOffsets(entry);
    case Tag::RowsPerStrip:
        return TakeSize(entry, m_page.rowsPerStrip);
    case Tag::StripByteCounts:
        return TakeStripByteCounts(entry);
    case Tag::XResolution:
        return TakeResolution(entry, m_resolution);
    case Tag::YResolution:
        return TakeResolution(entry, ignored);
    case Tag::PlanarConfiguration:
        return TakePlanarConfiguration(entry);
    case Tag::ResolutionUnit:
        return TakeResolutionUnit(entry);
    case Tag::Predictor:
        return TakePredictor(entry);
    case Tag::ColorMap:
        return TakeColorMap(entry);
    case Tag::IccProfile:
        return CopyTifProfile(m_bytes, entry, m_iccFile);
    case Tag::SamplesPerPixel:
        break;
    }
    return ImageResult::Ok;
}

ImageResult PageParser::TakeSize(const TifEntry& entry, std::uint32_t& size) const
{
    if (!entry.IsShortOrLong() || entry.count != 1)
        return ImageResult::TifFormatError;
    size = entry.Number();
    return ImageResult::Ok;
}

ImageResult PageParser::TakeShort(const TifEntry& entry, std::uint16_t& value) const
{
    if (!entry.IsOneShort())
        return ImageResult::TifFormatError;
    value = entry.shortValue;
    return ImageResult::Ok;
}

ImageResult PageParser::TakeBitsPerSample(const TifEntry& entry)
{
    if (entry.type != Type::Short || (entry.count != 1 && entry.count != 3))
        return ImageResult::UnsupportedTifFormat;
    if (entry.count == 1) {
        if (entry.shortValue != 1 && entry.shortValue != 8 && entry.shortValue != 16)
            return ImageResult::UnsupportedTifFormat;
        m_page.depth = entry.shortValue == 1 ? ColorDepth::Bilevel
            : entry.shortValue == 8          ? ColorDepth::Gray8
                                             : ColorDepth::Gray16;
        return ImageResult::Ok;
    }
    std::array<std::uint8_t, 6> bytes;
    if (!m_bytes.ReadAll(entry.value, bytes))
        return ImageResult::CantReadTif;
    ByteReader reader(bytes, m_bytes.Order());
    while (const auto bits = reader.ReadU16()) {
        if (*bits != 8 && *bits != 16)
            return ImageResult::UnsupportedTifFormat;
        // Triples of both kinds count as their last one says.
        m_page.depth = *bits == 8 ? ColorDepth::Rgb8 : ColorDepth::Rgb16;
    }
    return ImageResult::Ok;
}

ImageResult PageParser::TakeDescription(const TifEntry& entry)
{
    if (entry.type != Type::Ascii)
        return ImageResult::TifFormatError;
    // A text that the file does not hold to its end is taken as far as it goes.
    const std::uint64_t offset = entry.count < 5 ? entry.fieldOffset : entry.value;
    const std::uint64_t there = m_bytes.BytesFrom(offset);
    const std::uint64_t most = std::min<std::uint64_t>(entry.count, kMaxDescriptionBytes);
    std::vector<std::uint8_t> text(static_cast<std::size_t>(std::min(there, most)));
    text.resize(m_bytes.ReadAt(offset, text));
    m_page.description.assign(text.begin(), text.end());
    return ImageResult::Ok;
}

ImageResult PageParser::TakeStripOffsets(const TifEntry& entry)
{
    if (!entry.IsShortOrLong())
        return ImageResult::TifFormatError;
    const unsigned entryBytes = entry.type == Type::Short ? 2 : 4;
    const std::uint64_t bytes = std::uint64_t{entry.count} * entryBytes;
    const std::uint64_t offset = bytes <= 4 ? entry.fieldOffset : entry.value;
    if (!m_bytes.Hold(offset, bytes))
        return ImageResult::CantReadTif;
    m_page.strips = {offset, entry.count, entryBytes, m_bytes.Order()};
    return ImageResult::Ok;
}

/// The byte counts are not needed for reading: every coding says by itself where its rows end. Too
/// many files have wrong ones.
ImageResult PageParser::TakeStripByteCounts(const TifEntry& entry) const
{
    if (!entry.IsShortOrLong() || entry.count != m_page.strips.Count())
        return ImageResult::TifFormatError;
    const std::uint64_t bytes = std::uint64_t{entry.count} * (entry.type == Type::Short ? 2 : 4);
    return bytes <= 4 || m_bytes.Hold(entry.value, bytes) ? ImageResult::Ok
                                                          : ImageResult::CantReadTif;
}

ImageResult PageParser::TakeResolution(const TifEntry& entry, TifRational& resolution) const
{
    if (!entry.IsOneRational())
        return ImageResult::TifFormatError;
    return m_bytes.ReadRational(entry.value, resolution) ? ImageResult::Ok
                                                         : ImageResult::CantReadTif;
}

ImageResult PageParser::TakePlanarConfiguration(const TifEntry& entry) const
{
    if (!entry.IsOneShort())
        return ImageResult::TifFormatError;
    return entry.shortValue == 1 ? ImageResult::Ok : ImageResult::UnsupportedTifFormat;
}

ImageResult PageParser::TakeResolutionUnit(const TifEntry& entry)
{
    if (!entry.IsOneShort() || entry.shortValue < 1 || entry.shortValue > 3)
        return ImageResult::TifFormatError;
    m_resolutionUnit = entry.shortValue;
    return ImageResult::Ok;
}

ImageResult PageParser::TakePredictor(const TifEntry& entry)
{
    if (!entry.IsOneShort())
        return ImageResult::TifFormatError;
    m_page.predictor = entry.shortValue;
    const bool isKnown =
        entry.shortValue == 1 || entry.shortValue == TifPage::kHorizontalDifferencing;
    return isKnown ? ImageResult::Ok : ImageResult::UnsupportedTifFormat;
}

std::uint8_t ColorByte(std::uint16_t value)
{
    return static_cast<std::uint8_t>(std::uint32_t{value} * 255 / 65535);
}

ImageResult PageParser::TakeColorMap(const TifEntry& entry)
{
    if (entry.type != Type::Short || entry.count != TifPage::kColorMapValues
        || m_page.depth != ColorDepth::Gray8)
        return ImageResult::TifFormatError;
    std::array<std::uint8_t, 2 * TifPage::kColorMapValues> bytes;
    if (!m_bytes.ReadAll(entry.value, bytes))
        return ImageResult::CantReadTif;
    ByteReader reader(bytes, m_bytes.Order());
    for (std::uint16_t& value : m_page.colorMapValues)
        value = *reader.ReadU16();
    const std::size_t colors = m_page.colorMap.size();
    for (std::size_t i = 0; i < colors; ++i) {
        m_page.colorMap[i] = {ColorByte(m_page.colorMapValues[i]),
            ColorByte(m_page.colorMapValues[colors + i]),
            ColorByte(m_page.colorMapValues[2 * colors + i])};
    }
    m_page.depth = ColorDepth::Palette8;
    m_page.colorMapEntries = static_cast<std::uint32_t>(m_page.colorMap.size());
    return ImageResult::Ok;
}

/// Rounded to nearest. A centimetre is 100 / 254 of an inch.
std::uint32_t PageParser::ResolutionInDpi() const
{
    constexpr std::uint16_t kNoUnit = 1, kCentimetre = 3;
    const std::uint64_t numerator = m_resolution.numerator;
    const std::uint64_t denominator = m_resolution.denominator;
    if (denominator == 0 || m_resolutionUnit == kNoUnit)
        return 0;
    const std::uint64_t dpi = m_resolutionUnit == kCentimetre
        ? (numerator * 254 + denominator * 50) / (denominator * 100)
        : (numerator + denominator / 2) / denominator;
    return static_cast<std::uint32_t>(
        std::min<std::uint64_t>(dpi, std::numeric_limits<std::uint32_t>::max()));
}

} // namespace

ImageResult ReadTifPage(const PositionalFile& file, ByteOrder order, std::uint64_t& position,
    const std::filesystem::path& iccFile, TifPage& page)
{
    page = TifPage{};
    page.order = order;
    const TifBytes bytes(file, order);
    PageParser parser(bytes, iccFile, page);
    const ImageResult result = parser.ReadEntries(position);
    return result == ImageResult::Ok ? CheckTifPage(page, file.Size()) : result;
}

} // namespace vireo
