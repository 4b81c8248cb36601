#include "viewers/oscilloscope/OscilloscopeText.h"

#include "platform/Text.h"
#include "viewers/controls/ProfileAnalysis.h"
#include "viewers/controls/ProfileScene.h"
#include "viewers/oscilloscope/OscilloscopeData.h"

#include <algorithm>
#include <array>
#include <span>

namespace vireo {

namespace {

std::string HeaderLine(std::string_view label, std::string_view value)
{
    constexpr std::size_t kLabelWidth = 15;
    std::string line(label);
    line.resize(kLabelWidth, ' ');
    return line.append(value);
}

} // namespace

std::vector<std::string> PrintedHeaderLines(const OscilloscopeData& data, ShownColour shown)
{
    std::vector<std::string> lines{HeaderLine("Scanner Name:", data.m_ScannerName)};
    if (!data.m_ScannerID.empty())
        lines.push_back(HeaderLine("Scanner ID:", data.m_ScannerID));
    lines.push_back(HeaderLine("Date   :", data.m_Date));
    lines.push_back(HeaderLine("Time:", data.m_Time));
    lines.push_back(HeaderLine("Color:", ColourName(shown)));
    return lines;
}

std::string MissingInformation(std::string_view item)
{
    return std::string("Missing Information:\n").append(item);
}

std::string PositionText(const CursorReading& reading)
{
    return Format("%lld (%d)", static_cast<long long>(reading.pixel), reading.value);
}

namespace {

constexpr std::array kPlanes{Plane::Red, Plane::Green, Plane::Blue};

std::string_view PlaneName(Plane plane)
{
    return ColourName(static_cast<ShownColour>(plane));
}

/// The value of every plane at a pixel, those that are not there left out.
std::string ValuesText(std::int64_t pixel, const ProfileLine& line)
{
    std::string text;
    for (const Plane plane : kPlanes) {
        const auto& samples = line.Of(plane).samples;
        const auto index = static_cast<std::size_t>(pixel);
        if (pixel < 0 || index >= samples.size())
            continue;
        text += text.empty() ? "" : "  ";
        text += std::string(PlaneName(plane)) + Format(" %d", samples[index]);
    }
    return text;
}

} // namespace

std::string CursorText(const CursorReading& reading, const ProfileLine& line, ShownColour shown)
{
    std::string text = Format("Pixel %lld", static_cast<long long>(reading.pixel));
    if (reading.positionMm)
        text += Format("   %.2f mm", *reading.positionMm);
    if (reading.camera)
        text += Format("   Camera %c", ProfileCameras::Letter(*reading.camera));
    text += "   ";
    if (shown == ShownColour::All)
        return text + ValuesText(reading.pixel, line);
    return text + std::string(ColourName(shown)) + Format(" %d", reading.value);
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
