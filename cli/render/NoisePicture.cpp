#include "cli/render/NoisePicture.h"

#include "cli/FileParts.h"
#include "cli/render/PictureFile.h"
#include "figures/Subject.h"
#include "viewers/noise/NoiseData.h"
#include "viewers/noise/NoisePlot.h"
#include "viewers/noise/NoiseText.h"
#include "viewers/noise/NoiseView.h"

#include <QPainter>

#include <algorithm>

namespace vireo {

namespace {

/// Takes the plane of the settings; gives the reason when the file has not got what they choose.
std::string TakePlane(const Settings& settings, NoiseData& data)
{
    FileParts parts;
    parts.planes.reset();
    if (std::string refusal = RefuseMissing(settings, parts); !refusal.empty())
        return refusal;
    const bool isOnePlane = !data.m_bHasColour;
    if (!settings.colour || (isOnePlane && *settings.colour == ShownColour::All))
        return {};
    if (*settings.colour == ShownColour::All)
        return "A noise plot shows one plane";
    if (!data.PlaneOf(*settings.colour))
        return "There is no plane " + std::string(ColourName(*settings.colour));
    data.m_shown = *settings.colour;
    return {};
}

/// The part of the line that the zoom leaves in view about its middle.
ProfileView ViewOf(std::int64_t length, int zoom)
{
    NoiseView view = NoiseView::Whole(length);
    const std::int64_t closest = std::max<std::int64_t>(length / NoiseView::kFewestPixels, 1);
    view.zoom = static_cast<int>(std::min<std::int64_t>(zoom, closest));
    return view.Stretch(length);
}

} // namespace

std::string RenderNoise(const Subject& subject, const Settings& settings)
{
    NoiseData data;
    if (const NoiseResult result = data.Read(subject.path); result != NoiseResult::Ok)
        return data.DescribeFailure(result);
    if (std::string refusal = TakePlane(settings, data); !refusal.empty())
        return refusal;
    data.Summarise();
    const std::vector<Limit> limits = LimitsToMark(subject, settings);
    const NoisePlotContent content{&data, ViewOf(data.m_iLineLength, settings.zoom),
        settings.unit ? *settings.unit : ReadUnitSetting(), limits};
    const QSizeF size(settings.PlotSize().width, settings.PlotSize().height);

    const DrawingSession session;
    Drawing drawing;
    drawing.title = subject.name;
    drawing.list = TestHeaderLines(data);
    drawing.drawPlot = [&](QPainter& painter) { DrawNoisePlot(painter, size, content); };
    drawing.drawPage = [&](QPainter& painter, const QRectF& page) {
        DrawNoisePage(painter, page, TestHeaderLines(data), size, content);
    };
    return WritePicture(drawing, settings);
}

} // namespace vireo
