#include "viewers/stitch/StitchText.h"

#include "platform/Path.h"
#include "platform/Text.h"
#include "viewers/stitch/StitchData.h"

#include <array>
#include <cinttypes>

namespace vireo {

std::string PixelText(const StitchData& data, std::int64_t x, std::int64_t y, std::uint8_t value)
{
    std::string text = Format("x %" PRId64 "  y %" PRId64, x, y);
    if (data.m_iPhysicalResolution > 0) {
        constexpr double kMillimetresPerInch = 25.4;
        const double pixel = kMillimetresPerInch / data.m_iPhysicalResolution;
        text += Format(
            "    %.2f mm  %.2f mm", static_cast<double>(x) * pixel, static_cast<double>(y) * pixel);
    }
    return text + Format("    value %d", value);
}

std::string PictureText(const StitchData& data)
{
    std::string text = Format("%d x %d pixels, ", data.m_iMemoryDC_Width, data.m_iMemoryDC_Height);
    if (data.m_iPhysicalResolution > 0)
        text += Format("%d dpi, ", data.m_iPhysicalResolution);
    return text + (data.m_bRunLength ? "run-length" : "gray");
}

std::vector<std::string> StitchHeaderLines(const StitchData& data)
{
    std::vector<std::string> lines{"Stitch Test"};
    const auto add = [&lines](const char* name, const std::string& value) {
        if (!value.empty())
            lines.push_back(std::string(name).append(value));
    };
    const TestFileHeader& header = data.Header();
    add("File:            ", Windows1252FromUtf8(Utf8FromPath(data.Path().filename())));
    add("Scanner Name:    ", header.ScannerName().value);
    add("Scanner Number:  ", header.ScannerID().value);
    add("Date:            ", header.Date().value);
    add("Picture:         ", PictureText(data));
    return lines;
}

} // namespace vireo
