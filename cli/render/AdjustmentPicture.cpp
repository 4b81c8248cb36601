#include "cli/render/AdjustmentPicture.h"

#include "cli/FileParts.h"
#include "cli/render/PictureFile.h"
#include "figures/AdjustmentJson.h"
#include "figures/Subject.h"
#include "viewers/adjustment/AdjustmentData.h"
#include "viewers/adjustment/AdjustmentExport.h"
#include "viewers/adjustment/AdjustmentPage.h"
#include "viewers/controls/PicturePyramid.h"
#include "viewers/controls/ProfileText.h"

#include <QPainter>

#include <algorithm>
#include <optional>
#include <thread>

namespace vireo {

namespace {

using Form = AdjustmentData::Form;

FileParts PartsOf(const AdjustmentData& data)
{
    FileParts parts;
    parts.lines.reset(); // It was found when the file was opened.
    parts.cameraPixels = data.Cameras().pixels;
    if (data.FirstShown() == ShownColour::All)
        parts.planes = {ShownColour::Red, ShownColour::Green, ShownColour::Blue};
    else
        parts.planes = {ShownColour::Gray};
    return parts;
}

/// Reads the line of a profile; gives the reason when it cannot.
std::string TakeProfile(const AdjustmentData& data, const Settings& settings, ProfileLine& line,
    ProfilePlotContent& plot)
{
    if (!data.Lines().ReadLine(settings.line, line))
        return "The data cannot be read to their end";
    plot.line = &line;
    plot.shown = settings.colour.value_or(data.FirstShown());
    if (data.FirstShown() != ShownColour::All)
        plot.shown = ShownColour::Gray;
    plot.cameras = data.Cameras();
    plot.unit = ProfileUnitOf(settings.unit ? *settings.unit : ReadUnitSetting());
    plot.scene = ComposeScene({}, line, plot.shown, plot.cameras);
    ProfileView& view = plot.scene.view;
    view = view.CentredOn(view.first + view.length / 2.0, settings.zoom, line.Length());
    return {};
}

void DrawPlot(QPainter& painter, QSizeF size, Form form, const AdjustmentPage& page)
{
    if (form == Form::Profile)
        DrawProfilePlot(painter, size, page.profile);
    else if (form == Form::Picture)
        DrawWholePicture(painter, size, page.picture);
    else
        DrawTextLines(painter, size, page.header);
}

} // namespace

std::string RenderAdjustment(const Subject& subject, const Settings& settings)
{
    AdjustmentData data;
    if (std::string failure = OpenAdjustment(subject, settings.line, data); !failure.empty())
        return failure;
    if (std::string refusal = RefuseMissing(settings, PartsOf(data)); !refusal.empty())
        return refusal;
    const QSizeF size(settings.PlotSize().width, settings.PlotSize().height);
    AdjustmentPage page;
    page.header = AdjustmentHeaderLines(data);
    page.plotSize = size;
    ProfileLine line;
    if (data.DataForm() == Form::Profile)
        if (std::string failure = TakeProfile(data, settings, line, page.profile); !failure.empty())
            return failure;
    std::optional<PicturePyramid> pyramid;
    if (data.Picture()) {
        pyramid.emplace(*data.Picture());
        pyramid->Build(std::max(std::thread::hardware_concurrency(), 1U));
        page.picture = {data.Picture().get(), &*pyramid};
    }
    const DrawingSession session;
    Drawing drawing;
    drawing.title = subject.name;
    drawing.list = page.header;
    drawing.drawPlot = [&](QPainter& painter) { DrawPlot(painter, size, data.DataForm(), page); };
    drawing.drawPage = [&](QPainter& painter, const QRectF& paper) {
        DrawAdjustmentPage(painter, paper, page);
    };
    return WritePicture(drawing, settings);
}

} // namespace vireo
