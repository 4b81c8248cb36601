#include "cli/render/TonalPicture.h"

#include "cli/FileParts.h"
#include "cli/render/PictureFile.h"
#include "figures/Subject.h"
#include "viewers/tonal/TonalReport.h"
#include "viewers/tonal/TonalResolutionData.h"
#include "viewers/tonal/TonalResolutionPlot.h"

#include <QPainter>

#include <sstream>
#include <vector>

namespace vireo {

namespace {

/// On paper, at about the proportions that it has in the dialog.
QSize SizeOf(const Settings& settings)
{
    constexpr PictureSize kOnPage{760, 480};
    const bool isPage = settings.format == PictureFormat::Pdf && !settings.givenSize;
    const PictureSize size = isPage ? kOnPage : settings.PlotSize();
    return {size.width, size.height};
}

/// Shows one channel only, when there is one in the settings.
void TakeChannel(const Settings& settings, TonalPlotContent& content)
{
    const ShownColour colour = settings.colour.value_or(ShownColour::All);
    if (colour == ShownColour::All)
        return;
    content.flags[TonalShowRed] = colour == ShownColour::Red;
    content.flags[TonalShowGreen] = colour == ShownColour::Green;
    content.flags[TonalShowBlue] = colour == ShownColour::Blue;
}

/// The lines of the report.
std::vector<std::string> ReportLines(const TonalResolutionData& data)
{
    std::vector<std::string> lines;
    std::istringstream report(TonalReport(data));
    for (std::string line; std::getline(report, line);)
        lines.push_back(line);
    return lines;
}

} // namespace

std::string RenderTonal(const Subject& subject, const Settings& settings)
{
    TonalResolutionData data;
    if (const TonalResult result = data.Read(subject.path); result != TonalResult::Ok)
        return data.DescribeFailure(result);
    TonalPlotContent content;
    content.data = &data;
    const std::vector<Limit> limits = LimitsToMark(subject, settings);
    content.limits = limits;
    FileParts parts;
    parts.views = kTonalViews;
    parts.planes = {ShownColour::Red, ShownColour::Green, ShownColour::Blue};
    if (std::string refusal = RefuseMissing(settings, parts); !refusal.empty())
        return refusal;
    content.view = static_cast<TonalView>(settings.view.value_or(0));
    TakeChannel(settings, content);
    const QSize size = SizeOf(settings);

    const DrawingSession session;
    Drawing drawing;
    drawing.title = subject.name;
    drawing.list = ReportLines(data);
    drawing.drawPlot = [&](QPainter& painter) {
        painter.fillRect(QRect({0, 0}, size), Qt::white);
        DrawTonalPlot(painter, size, content);
    };
    drawing.drawPage = [&](QPainter& painter, const QRectF& page) {
        DrawTonalPage(painter, page, TonalPlotHeaderLines(data), size, content);
    };
    return WritePicture(drawing, settings);
}

} // namespace vireo
