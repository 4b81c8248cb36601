#include "cli/render/StarTestPicture.h"

#include "cli/FileParts.h"
#include "cli/render/PictureFile.h"
#include "figures/StarTestJson.h"
#include "figures/Subject.h"
#include "viewers/controls/HorizontalZoom.h"
#include "viewers/startest/StarTestCurves.h"
#include "viewers/startest/StarTestData.h"
#include "viewers/startest/StarTestPlot.h"
#include "viewers/startest/StarTestText.h"

#include <QPainter>

namespace vireo {

namespace {

/// Shows the curves that the settings ask for, on the scale that they need; gives the reason when
/// the sweep has none of them.
std::string TakeView(const Settings& settings, CurveSlots& curves, CurvePlotContent& plot)
{
    const int number = settings.view.value_or(0);
    if (number == 0)
        return {};
    const StarTestView& view = StarTestViews()[static_cast<std::size_t>(number - 1)];
    if (!ShowCurves(view, curves))
        return "This sweep has no curves of the view " + std::string(view.name);
    plot.scale = VerticalScale::Fitting(curves.RangeIn(plot.view));
    return {};
}

} // namespace

std::string RenderStarTest(const Subject& subject, const Settings& settings)
{
    StarTestData data;
    if (std::string failure = OpenStarTest(subject, settings.sweep, data); !failure.empty())
        return failure;
    FileParts parts;
    parts.lines = data.SelectedSweep() ? data.SelectedSweep()->LineCount() : 0;
    parts.sweeps = std::ssize(data.m_sweeps);
    parts.views = 1 + static_cast<int>(StarTestViews().size());
    if (std::string refusal = RefuseMissing(settings, parts); !refusal.empty())
        return refusal;
    CurveSlots curves;
    FillCurves(data, curves);
    curves.Summarise();
    if (curves.Points() == 0)
        return "The sweep has no lines";
    const HorizontalZoom whole = HorizontalZoom::Whole(curves.Points());
    StarTestPlotContent content;
    content.data = &data;
    content.markers = MarkersOf(data);
    content.plot.curves = &curves;
    content.plot.target = CurvePlotContent::Target::Paper;
    content.plot.view = whole.CentredOn(static_cast<double>(whole.centre), settings.zoom).View();
    if (std::string refusal = TakeView(settings, curves, content.plot); !refusal.empty())
        return refusal;
    DescribePlot(data, content.plot, LimitsToMark(subject, settings));
    const QSizeF size(settings.PlotSize().width, settings.PlotSize().height);

    const DrawingSession session;
    Drawing drawing;
    drawing.title = subject.name;
    drawing.list = StarTestHeaderLines(data);
    drawing.drawPlot = [&](QPainter& painter) { DrawStarTestPicture(painter, size, content); };
    drawing.drawPage = [&](QPainter& painter, const QRectF& page) {
        DrawStarTestPage(painter, page, StarTestHeaderLines(data), size, content);
    };
    return WritePicture(drawing, settings);
}

} // namespace vireo
