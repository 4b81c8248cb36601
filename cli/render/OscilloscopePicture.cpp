#include "cli/render/OscilloscopePicture.h"

#include "cli/Settings.h"
#include "cli/render/PictureFile.h"
#include "cli/render/ProfileDrawing.h"
#include "figures/OscilloscopeJson.h"
#include "viewers/oscilloscope/OscilloscopeChoices.h"
#include "viewers/oscilloscope/OscilloscopeData.h"
#include "viewers/oscilloscope/OscilloscopeText.h"

namespace vireo {

std::string RenderOscilloscope(const Subject& subject, const Settings& settings)
{
    OscilloscopeData data;
    if (std::string failure = OpenOscilloscope(subject, settings.line, data); !failure.empty())
        return failure;
    constexpr int kNoCameraBefore = 0;
    const OscilloscopeChoices offered = ChoicesFor(data, kNoCameraBefore);
    ProfileDrawing drawing;
    drawing.cameras = data.Cameras();
    drawing.shown = offered.shown;
    drawing.camera = offered.camera;
    if (std::string refusal = TakeProfileChoices(settings, offered.hasEveryPlane, drawing);
        !refusal.empty())
        return refusal;
    if (!data.ReadLine(settings.line, drawing.line))
        return "The data cannot be read to their end";
    drawing.limits = LimitsToMark(subject, settings);
    drawing.header = PrintedHeaderLines(data, drawing.shown);
    return WriteProfileDrawing(subject, settings, drawing);
}

} // namespace vireo
