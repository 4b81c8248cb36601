#include "viewers/oscilloscope/OscilloscopeText.h"

#include "platform/Text.h"
#include "viewers/controls/ProfileAnalysis.h"
#include "viewers/controls/ProfileScene.h"
#include "viewers/controls/ProfileText.h"
#include "viewers/oscilloscope/OscilloscopeData.h"

#include <algorithm>
#include <span>

namespace vireo {

std::vector<std::string> PrintedHeaderLines(const OscilloscopeData& data, ShownColour shown)
{
    std::vector<std::string> lines{LabelledLine("Scanner Name:", data.m_ScannerName)};
    if (!data.m_ScannerID.empty())
        lines.push_back(LabelledLine("Scanner ID:", data.m_ScannerID));
    lines.push_back(LabelledLine("Date   :", data.m_Date));
    lines.push_back(LabelledLine("Time:", data.m_Time));
    lines.push_back(LabelledLine("Color:", ColourName(shown)));
    return lines;
}

std::string MissingInformation(std::string_view item)
{
    return std::string("Missing Information:\n").append(item);
}

std::string FocusText(const ProfileLine& line, const ProfileCameras& cameras, ShownColour shown)
{
    const std::span<const std::uint8_t> samples = line.Of(PlaneOf(shown)).samples;
    const auto length = static_cast<std::int64_t>(samples.size());
    std::string text = "Focus";
    for (int camera = 0; camera < cameras.Count(); ++camera) {
        const std::int64_t start = cameras.Start(camera);
        const std::int64_t end = std::min(cameras.End(camera), length);
        if (cameras.pixels[static_cast<std::size_t>(camera)] < ProfileCameras::kFewestPixels
            || start >= end)
            continue;
        const double figure = FocusFigure(samples.subspan(
            static_cast<std::size_t>(start), static_cast<std::size_t>(end - start)));
        text += Format("   %c %.1f", ProfileCameras::Letter(camera), figure);
    }
    return text;
}

std::string LineText(std::int64_t line, std::int64_t lineCount)
{
    return Format(
        "Line %lld of %lld", static_cast<long long>(line + 1), static_cast<long long>(lineCount));
}

} // namespace vireo
