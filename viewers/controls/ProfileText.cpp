#include "viewers/controls/ProfileText.h"

#include "platform/Text.h"
#include "viewers/controls/ProfileScene.h"

#include <array>
#include <numeric>
#include <span>

namespace vireo {

ProfileUnit ProfileUnitOf(PositionUnit unit)
{
    // A hundredth of a millimetre, or finer.
    constexpr std::array<int, 3> kDecimals{4, 3, 3};
    return {std::string(UnitSymbol(unit)),
        kInchesPerWidthUnit * kMillimetresPerInch / UnitsPerWidthUnit(unit),
        kDecimals[static_cast<std::size_t>(unit)]};
}

std::string LabelledLine(std::string_view label, std::string_view value)
{
    constexpr std::size_t kLabelWidth = 15;
    std::string line(label);
    line.resize(kLabelWidth, ' ');
    return line.append(value);
}

std::string PositionText(const CursorReading& reading)
{
    return Format("%lld (%d)", static_cast<long long>(reading.pixel), reading.value);
}

namespace {

constexpr std::array kPlanes{Plane::Red, Plane::Green, Plane::Blue};

/// The value of every plane at a pixel, those that are not there left out.
std::string ValuesText(std::int64_t pixel, const ProfileLine& line)
{
    std::string text;
    for (const Plane plane : kPlanes) {
        const auto value = line.ValueAt(plane, pixel);
        if (!value)
            continue;
        text += text.empty() ? "" : "  ";
        text += std::string(ColourName(static_cast<ShownColour>(plane))) + Format(" %d", *value);
    }
    return text;
}

} // namespace

std::string CursorText(const CursorReading& reading, const ProfileLine& line, ShownColour shown,
    const ProfileUnit& unit)
{
    std::string text = Format("Pixel %lld", static_cast<long long>(reading.pixel));
    if (reading.positionMm)
        text +=
            Format("   %.*f ", unit.decimals, *reading.positionMm / unit.millimetres) + unit.symbol;
    if (reading.camera)
        text += Format("   Camera %c", ProfileCameras::Letter(*reading.camera));
    text += "   ";
    if (shown == ShownColour::All)
        return text + ValuesText(reading.pixel, line);
    return text + std::string(ColourName(shown)) + Format(" %d", reading.value);
}

namespace {

template <typename Sample>
double MeanOf(std::span<const Sample> samples)
{
    // 32-bit samples of any line that fits into memory add up within 64 bits.
    return static_cast<double>(std::accumulate(samples.begin(), samples.end(), std::int64_t{0}))
        / static_cast<double>(samples.size());
}

} // namespace

std::optional<ProfileFigures> FiguresOf(const ProfileLine& line, ShownColour shown)
{
    const Plane plane = PlaneOf(shown);
    if (!line.HasPlane(plane))
        return std::nullopt;
    const auto range = line.RangeOf(plane, 0, line.Length());
    const double mean = line.IsWide() ? MeanOf(std::span(line.WideOf(plane).samples))
                                      : MeanOf(std::span(line.Of(plane).samples));
    return ProfileFigures{range.lowest, range.highest, mean};
}

std::string FiguresText(const std::optional<ProfileFigures>& figures)
{
    if (!figures)
        return "No data";
    return Format(
        "Lowest %d\nHighest %d\nMean %.1f", figures->lowest, figures->highest, figures->mean);
}

std::string LineCountText(std::int64_t lineCount)
{
    return Format("of %lld", static_cast<long long>(lineCount));
}

} // namespace vireo
