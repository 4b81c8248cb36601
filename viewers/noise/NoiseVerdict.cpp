#include "viewers/noise/NoiseVerdict.h"

#include "platform/Text.h"
#include "viewers/noise/NoiseData.h"

namespace vireo {

namespace {

int StretchesOutside(const NoiseData& data, ShownColour colour, int limitPercent)
{
    const NoisePlane* const plane = data.PlaneOf(colour);
    return plane ? plane->StretchesOutside(limitPercent) : 0;
}

} // namespace

NoiseVerdict JudgeNoise(const NoiseData& data, int limitPercent)
{
    if (data.m_iLineLength < NoiseBand::kFewestPixels)
        return NoiseVerdict::None;
    for (const ShownColour colour : data.Planes())
        if (StretchesOutside(data, colour, limitPercent) > 0)
            return NoiseVerdict::Fail;
    return NoiseVerdict::Pass;
}

std::string NoiseVerdictText(const NoiseData& data, int limitPercent)
{
    const NoiseVerdict verdict = JudgeNoise(data, limitPercent);
    if (verdict == NoiseVerdict::None)
        return {};
    if (verdict == NoiseVerdict::Pass)
        return "Pass";
    std::string text = "Fail";
    const char* separator = "\n";
    for (const ShownColour colour : data.Planes())
        if (const int count = StretchesOutside(data, colour, limitPercent); count > 0) {
            const ShownColour name = data.m_bHasColour ? colour : ShownColour::Gray;
            text.append(separator).append(ColourName(name)).append(Format(" %d", count));
            separator = ", ";
        }
    return text;
}

} // namespace vireo
