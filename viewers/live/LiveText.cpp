#include "viewers/live/LiveText.h"

#include "platform/Text.h"

namespace vireo {

std::string ScannerText(const ScannerIdentity& identity)
{
    return identity.id.empty() ? identity.name : identity.name + " (" + identity.id + ")";
}

std::string PaperText(PaperStatus paper)
{
    return paper == PaperStatus::Loaded ? "Sheet loaded" : "No sheet";
}

std::string RateText(double linesPerSecond, double shownPerSecond)
{
    if (linesPerSecond <= 0.0 || shownPerSecond <= 0.0)
        return "taking lines";
    return Format("%.0f lines/s, %.0f shown", linesPerSecond, shownPerSecond);
}

std::string AverageNote(const AcquiredLine& line)
{
    if (line.averaged > 1)
        return Format("Average of %d lines", line.averaged);
    return Format("Line %llu", static_cast<unsigned long long>(line.number));
}

std::string CursorNote(const CursorReading& reading)
{
    std::string text =
        Format("pixel %lld: %d", static_cast<long long>(reading.pixel), reading.value);
    if (reading.camera)
        text += Format(", camera %c", ProfileCameras::Letter(*reading.camera));
    if (reading.positionMm)
        text += Format(", %.2f mm", *reading.positionMm);
    return text;
}

std::string FileDate(const CDateTime& when)
{
    return Format("%04d-%02d-%02d", when.m_iYear, when.m_iMonth, when.m_iDay);
}

std::string FileTime(const CDateTime& when)
{
    return Format("%02d:%02d:%02d", when.m_iHour, when.m_iMinute, when.m_iSecond);
}

std::vector<std::string> LiveHeaderLines(
    const ScannerIdentity& identity, ShownColour shown, const CDateTime& when, bool isSimulated)
{
    const auto line = [](std::string_view label, std::string_view value) {
        constexpr std::size_t kLabelWidth = 15;
        std::string text(label);
        text.resize(kLabelWidth, ' ');
        return text.append(value);
    };
    std::vector<std::string> lines{"Light Profile", line("Scanner Name:", identity.name)};
    if (!identity.id.empty())
        lines.push_back(line("Scanner ID:", identity.id));
    lines.push_back(line("Date:", FileDate(when)));
    lines.push_back(line("Time:", FileTime(when)));
    lines.push_back(line("Color:", ColourName(shown)));
    if (isSimulated)
        lines.emplace_back("Simulated: nothing was measured.");
    return lines;
}

} // namespace vireo
