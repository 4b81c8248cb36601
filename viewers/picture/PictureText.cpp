#include "viewers/picture/PictureText.h"

#include "platform/Path.h"
#include "platform/Text.h"
#include "viewers/picture/PictureCameras.h"
#include "viewers/picture/PictureData.h"

#include <algorithm>
#include <array>

namespace vireo {

namespace {

constexpr double kMillimetresPerInch = 25.4;

/// As printf's formats take it on every system.
long long Long(std::int64_t value)
{
    return value;
}

/// What a photometric interpretation is called; empty where it says nothing that is not seen.
std::string_view PhotometricText(const TifPage& page)
{
    constexpr std::uint16_t kSeparated = 5, kYCbCr = 6, kCieLab = 8;
    switch (page.photometric) {
    case TifPage::kWhiteIsZero:
        return page.depth == ColorDepth::Gray8 || page.depth == ColorDepth::Gray16 ? ", 0 is white"
                                                                                   : "";
    case kSeparated:
        return ", inks shown as red, green, blue";
    case kYCbCr:
        return ", YCbCr shown as red, green, blue";
    case kCieLab:
        return ", L*a*b* shown as red, green, blue";
    default:
        return "";
    }
}

std::string_view CoderText(std::uint16_t compression)
{
    switch (compression) {
    case TifCompression::kNone:
        return "none";
    case TifCompression::kModifiedHuffman:
        return "CCITT modified Huffman";
    case TifCompression::kGroup3:
        return "CCITT Group 3";
    case TifCompression::kGroup4:
        return "CCITT Group 4";
    case TifCompression::kLzw:
        return "LZW";
    case TifCompression::kPackBits:
        return "PackBits";
    default:
        return "";
    }
}

/// The description up to its first zero byte, without line ends behind it.
std::string_view DescriptionText(const TifPage& page)
{
    const std::string_view text = page.description;
    const std::string_view shown = text.substr(0, text.find('\0'));
    return shown.substr(0, shown.find_last_not_of(" \t\r\n") + 1);
}

std::string ValueText(const PictureData& data, const PixelSamples& samples)
{
    const auto& [red, green, blue] = samples.values;
    switch (data.Page().depth) {
    case ColorDepth::Bilevel:
        return red != 0 ? "1 (white)" : "0 (black)";
    case ColorDepth::Palette8: {
        const TifPage::Color color = data.PaletteColor(static_cast<std::uint8_t>(red));
        return Format("index %d: R %d  G %d  B %d", red, color.red, color.green, color.blue);
    }
    case ColorDepth::Gray8:
    case ColorDepth::Gray16:
        return Format("Gray %d", red);
    case ColorDepth::Rgb8:
    case ColorDepth::Rgb16:
        break;
    }
    return Format("R %d  G %d  B %d", red, green, blue);
}

} // namespace

std::string_view DepthText(const TifPage& page)
{
    switch (page.depth) {
    case ColorDepth::Bilevel:
        return "bilevel";
    case ColorDepth::Gray8:
        return "8-bit gray";
    case ColorDepth::Rgb8:
        return "8-bit RGB";
    case ColorDepth::Palette8:
        return "256-color palette";
    case ColorDepth::Gray16:
        return "16-bit gray";
    case ColorDepth::Rgb16:
        break;
    }
    return "16-bit RGB";
}

std::string CompressionText(const TifPage& page)
{
    std::string text(CoderText(page.compression));
    if (text.empty())
        text = Format("number %d", page.compression);
    if (page.predictor == TifPage::kHorizontalDifferencing)
        text += ", horizontal differencing";
    return text;
}

std::string ResolutionText(const TifPage& page)
{
    return page.resolution == 0 ? "not given" : Format("%u dpi", page.resolution);
}

std::string SizeText(const TifPage& page)
{
    return Format("%u x %u pixels", page.width, page.height);
}

std::string LengthText(const TifPage& page)
{
    if (page.resolution == 0)
        return {};
    const double pixel = kMillimetresPerInch / page.resolution;
    return Format("%.1f x %.1f mm", page.width * pixel, page.height * pixel);
}

std::string BytesText(std::uint64_t bytes)
{
    constexpr std::array kUnits{"bytes", "KB", "MB", "GB", "TB"};
    constexpr double kStep = 1000.0;
    auto value = static_cast<double>(bytes);
    std::size_t unit = 0;
    for (; value >= kStep && unit + 1 < kUnits.size(); ++unit)
        value /= kStep;
    return Format(unit == 0 ? "%.0f %s" : "%.1f %s", value, kUnits[unit]);
}

PixelReading ReadPixel(const PictureData& data, std::int64_t column, std::int64_t row)
{
    const TifPage& page = data.Page();
    if (data.Holding() == PictureHolding::Nowhere || column < 0 || row < 0 || column >= page.width
        || row >= page.height)
        return {};
    PixelReading reading;
    reading.position = Format("x %lld  y %lld", Long(column), Long(row));
    if (page.resolution != 0) {
        const double pixel = kMillimetresPerInch / page.resolution;
        reading.position += Format("   %.2f, %.2f mm", static_cast<double>(column) * pixel,
            static_cast<double>(row) * pixel);
    }
    if (const auto samples = data.SamplesAt(column, row))
        reading.value = ValueText(data, *samples);
    if (data.Cameras()) {
        if (const std::optional<char> camera = CameraOfColumn(*data.Cameras(), column))
            reading.camera = std::string("Camera ") + *camera;
    }
    return reading;
}

std::string PageReport(const PictureData& data)
{
    const TifPage& page = data.Page();
    std::string text;
    const auto add = [&text](std::string_view name, std::string_view value) {
        if (!value.empty())
            text.append(name).append(": ").append(value).append("\n");
    };
    add("File size", BytesText(data.FileBytes()));
    add("Page", Format("%u of %u", data.PageNumber(), data.Pages()));
    add("Size", SizeText(page));
    add("Length", LengthText(page));
    add("Resolution", ResolutionText(page));
    add("Pixels", std::string(DepthText(page)).append(PhotometricText(page)));
    add("Compression", CompressionText(page));
    add("Byte order", page.order == ByteOrder::Little ? "little-endian (II)" : "big-endian (MM)");
    add("Rows per strip", Format("%u", page.RowsPerStrip()));
    if (data.Cameras()) {
        char letter = 'A';
        for (const std::int32_t count : *data.Cameras()) {
            if (count > 0)
                add(std::string("Camera ") + letter, Format("%d pixels", count));
            ++letter;
        }
    }
    if (const std::string_view description = DescriptionText(page); !description.empty())
        text.append("\n").append(description).append("\n");
    return text;
}

std::string HoldingNote(const PictureData& data)
{
    if (data.Holding() != PictureHolding::Reduced)
        return {};
    return Format("The picture takes %s, more than half of the memory of this computer. "
                  "It is shown reduced to 1:%lld.",
        BytesText(data.PixelBytes()).c_str(), Long(data.KeptReduction()));
}

namespace {

std::string RangeText(const RowRange& rows)
{
    return rows.end - rows.first == 1
        ? Format("%lld", Long(rows.first))
        : Format("%lld to %lld", Long(rows.first), Long(rows.end - 1));
}

/// The first of them by their numbers.
std::string RangesText(const std::vector<RowRange>& ranges)
{
    constexpr std::size_t kNamed = 3;
    std::string text;
    const std::size_t named = std::min(ranges.size(), kNamed);
    for (std::size_t i = 0; i < named; ++i) {
        if (i > 0)
            text += i + 1 == ranges.size() ? " and " : ", ";
        text += RangeText(ranges[i]);
    }
    std::int64_t more = 0;
    for (std::size_t i = named; i < ranges.size(); ++i)
        more += ranges[i].end - ranges[i].first;
    return more > 0 ? text + Format(" and %lld more", Long(more)) : text;
}

bool IsOneRow(const std::vector<RowRange>& ranges)
{
    return ranges.size() == 1 && ranges[0].end - ranges[0].first == 1;
}

/// "Row 7" or "Rows 7 to 9", at the beginning of a sentence.
std::string RowsText(const std::vector<RowRange>& ranges)
{
    return (IsOneRow(ranges) ? "Row " : "Rows ") + RangesText(ranges);
}

} // namespace

std::string LoadingNote(const PictureData& data, bool isLoading)
{
    if (isLoading || data.Holding() == PictureHolding::Nowhere)
        return HoldingNote(data);
    std::string note = HoldingNote(data);
    const auto add = [&note](const std::string& sentence) {
        note.append(note.empty() ? "" : "\n").append(sentence);
    };
    if (const std::vector<RowRange> missing = data.MissingRows(); !missing.empty())
        add(RowsText(missing) + " could not be read.");
    const std::int64_t height = data.Page().height;
    if (const std::int64_t covered = data.CoveredRows(); covered < height) {
        const std::vector<RowRange> rest{{covered, height}};
        add(RowsText(rest) + (IsOneRow(rest) ? " is not " : " are not ")
            + (data.IsLoaded() ? "in the file." : "loaded."));
    }
    return note;
}

std::vector<std::string> PictureHeaderLines(const PictureData& data)
{
    const TifPage& page = data.Page();
    std::vector<std::string> lines{
        "Picture: " + Windows1252FromUtf8(Utf8FromPath(data.Path().filename()))};
    if (data.Pages() > 1)
        lines.back() += Format(", page %u of %u", data.PageNumber(), data.Pages());
    lines.push_back("Size: " + SizeText(page));
    if (const std::string length = LengthText(page); !length.empty())
        lines.back() += ", " + length;
    lines.push_back("Resolution: " + ResolutionText(page));
    lines.push_back("Pixels: " + std::string(DepthText(page)));
    return lines;
}

} // namespace vireo
