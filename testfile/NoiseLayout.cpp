#include "testfile/NoiseLayout.h"

#include <algorithm>

namespace vireo {

namespace {

bool IsColourFile(
    const TestFileHeader& header, std::optional<std::int64_t> lineLength, std::int64_t dataLength)
{
    const HeaderValue<int> color = header.Color();
    if (color.value == TestFileHeader::kColorInterleaved
        || color.value == TestFileHeader::kColorAll)
        return true;
    if (color.value == TestFileHeader::kColorGray)
        return false;
    const HeaderValue<bool> scanner = header.ColorScanner();
    if (!color.found && scanner.found)
        return scanner.value;
    // One colour, or none named: the data tell how many planes there are.
    return lineLength && *lineLength > 0 && dataLength / NoiseLayout::kColourPlanes >= *lineLength;
}

} // namespace

NoiseLayout NoiseLayout::Of(const TestFileHeader& header, std::uint64_t fileSize)
{
    NoiseLayout layout;
    layout.offset = static_cast<std::uint64_t>(header.DataOffset());
    layout.dataLength = fileSize - std::min(fileSize, layout.offset);
    const auto dataLength = static_cast<std::int64_t>(layout.dataLength);
    const auto announced = AnnouncedLineLength(header);
    layout.hasColour = IsColourFile(header, announced, dataLength);
    layout.lineLength = announced.value_or(dataLength / (layout.hasColour ? kColourPlanes : 1));
    layout.planeBytes = layout.lineLength;
    layout.hasGray = layout.hasColour && layout.lineLength > 0
        && dataLength / (kColourPlanes + 1) >= layout.lineLength;
    return layout;
}

NoiseLayout NoiseLayout::Of(const OldFileHeader& header, std::uint64_t fileSize)
{
    NoiseLayout layout;
    layout.hasColour = header.colorFlag == 1;
    layout.offset = OldFileHeader::kBytes;
    layout.lineLength = header.width;
    layout.dataLength = fileSize - std::min(fileSize, layout.offset);
    layout.planeBytes = layout.lineLength;
    if (layout.hasColour) {
        layout.dataLength -= std::min(layout.dataLength, kTrailerBytes);
        layout.planeBytes = static_cast<std::int64_t>(layout.dataLength) / kColourPlanes;
    }
    return layout;
}

std::int64_t NoiseLayout::PlaneCount() const
{
    if (!hasColour)
        return 1;
    return hasGray ? kColourPlanes + 1 : kColourPlanes;
}

std::optional<std::int64_t> AnnouncedLineLength(const TestFileHeader& header)
{
    for (const HeaderValue<int>& value : {header.Length(), header.Width()})
        if (value.found)
            return value.value;
    return std::nullopt;
}

std::string ReadTrailerName(const PositionalFile& file, std::uint64_t offset)
{
    std::string trailer(NoiseLayout::kTrailerBytes, '\0');
    file.ReadAt(offset, {reinterpret_cast<std::uint8_t*>(trailer.data()), trailer.size()});
    trailer.back() = '\0'; // A name without an end has 43 characters.
    // A line end in the name would begin another line of a header that is saved later.
    return trailer.substr(0, trailer.find_first_of(std::string_view("\0\r\n", 3)));
}

} // namespace vireo
