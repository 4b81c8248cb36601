#include "cli/render/LightProfilePicture.h"

#include "cli/Settings.h"
#include "cli/render/ProfileDrawing.h"
#include "figures/LightProfileJson.h"
#include "viewers/controls/ProfileText.h"
#include "viewers/lightprofile/LightProfileData.h"
#include "viewers/lightprofile/LightProfileText.h"

namespace vireo {

std::string RenderLightProfile(const Subject& subject, const Settings& settings)
{
    LightProfileData data;
    if (std::string failure = OpenLightProfile(subject, settings.line, data); !failure.empty())
        return failure;
    ProfileDrawing drawing;
    drawing.cameras = data.Cameras();
    drawing.shown = data.FirstShown();
    const std::vector<int> cameras = CamerasToChoose(drawing.cameras);
    drawing.camera = cameras.empty() ? 0 : cameras.front();
    if (std::string refusal = TakeProfileChoices(settings, data.HasColour(), drawing);
        !refusal.empty())
        return refusal;
    if (!data.Lines().ReadLine(settings.line, drawing.line))
        return "The data cannot be read to their end";
    drawing.unit = ProfileUnitOf(settings.unit ? *settings.unit : ReadUnitSetting());
    drawing.header = LightProfileHeaderLines(data, drawing.shown, settings.line);
    return WriteProfileDrawing(subject, settings, drawing);
}

} // namespace vireo
