#include "viewers/oscilloscope/OscilloscopeChoices.h"

#include "viewers/oscilloscope/OscilloscopeData.h"

#include <algorithm>

namespace vireo {

namespace {

void ChooseColour(const OscilloscopeData& data, OscilloscopeChoices& choices)
{
    choices.shown = static_cast<ShownColour>(data.m_iShownColor);
    choices.isGray = choices.shown == ShownColour::Gray;
    choices.hasEveryPlane = data.IsInterleaved();
    if (!choices.isGray && !choices.hasEveryPlane)
        choices.shown = ShownColour::Green;
}

void ChooseCamera(const OscilloscopeData& data, int cameraBefore, OscilloscopeChoices& choices)
{
    std::ranges::transform(data.m_iCameraPixels, choices.cameras.begin(),
        [](int pixels) { return pixels >= ProfileCameras::kFewestPixels; });
    const auto first = std::ranges::find(choices.cameras, true);
    choices.hasCameras = first != choices.cameras.end();
    if (choices.cameras[static_cast<std::size_t>(cameraBefore)])
        choices.camera = cameraBefore;
    else if (choices.hasCameras)
        choices.camera = static_cast<int>(first - choices.cameras.begin());
}

} // namespace

OscilloscopeChoices ChoicesFor(const OscilloscopeData& data, int cameraBefore)
{
    OscilloscopeChoices choices;
    ChooseColour(data, choices);
    ChooseCamera(data, cameraBefore, choices);
    choices.usesCameraAdjustment = data.UsesCameraAdjustment();
    return choices;
}

} // namespace vireo
