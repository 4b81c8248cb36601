#include "viewers/startest/StarTestPlot.h"

#include "viewers/controls/CSymbolTestControl.h"
#include "viewers/controls/Colours.h"
#include "viewers/controls/Fonts.h"
#include "viewers/controls/PlotFurniture.h"
#include "viewers/controls/PrintPageLayout.h"
#include "viewers/controls/Symbols.h"
#include "viewers/startest/StarTestData.h"
#include "viewers/startest/StarTestText.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vireo {

namespace {

using Align = PlotFurniture::Align;

// Layout, in logical units.
constexpr double kListLeft = 15.0;
constexpr double kListSymbolX = 7.0;
constexpr double kListRowHeight = 15.0;
constexpr double kListSymbolSize = 3.0;
constexpr double kResultSymbolSize = 6.0;
constexpr double kScaleTick = 5.0;

void DrawResult(QPainter& painter, bool isPassed, QPointF centre, double size)
{
    const double extent = size * CSymbolTestControl::kUnitsPerSize;
    if (isPassed)
        DrawSymbol(painter, Symbol::Pass, centre, extent, ToQColor(Colour::kGreen));
    else
        DrawSymbol(painter, Symbol::Fail, centre, extent, ResultColour(Symbol::Fail));
}

/// A sweep is marked in the list as failed when the live measurement has not judged it good, or has
/// judged too few points.
bool IsListedAsFailed(const StarTestSweep& sweep)
{
    constexpr std::int32_t kFewestPoints = 10;
    return !sweep.m_bAllPointsPassed || !sweep.m_bChecked || sweep.m_iPointCount < kFewestPoints;
}

/// Whether each line of each sweep begins a new segment.
bool RestartsEverywhere(const StarTestData& data)
{
    return std::ranges::all_of(data.m_sweeps, [](const StarTestSweep& sweep) {
        return std::ranges::all_of(sweep.m_XRestart, [](std::int8_t mask) { return mask != 0; });
    });
}

/// One drawing of what stands about the curves.
class StarTestDrawing {
public:
    StarTestDrawing(QPainter& painter, QSizeF size, const StarTestPlotContent& content)
        : m_painter(painter),
          m_size(size),
          m_content(content),
          m_data(*content.data),
          m_scale(CurvePlotScale(content.plot, size)),
          m_furniture(painter, size, m_scale),
          m_area(m_furniture.Area())
    {
    }

    void Draw()
    {
        m_painter.save();
        m_painter.setFont(m_furniture.Font());
        DrawMarkers();
        DrawSweepList();
        DrawApplicationFactor();
        if (m_content.plot.gridParts > 0)
            DrawCentimetreScale();
        DrawResultSymbols();
        m_painter.restore();
    }

private:
    void DrawMarkers()
    {
        constexpr double kExtent = 4.0;
        m_painter.save();
        m_painter.setClipRect(m_area.toAlignedRect());
        for (const std::int32_t line : m_content.markers)
            DrawSymbol(m_painter, Symbol::TriangleDown,
                {m_scale.XAt(line), m_area.top() + 2 * kExtent}, kExtent, ToQColor(Colour::kRed));
        m_painter.restore();
    }

    void DrawSweepList()
    {
        const SweepList list = SweepList::Of(m_data, m_size);
        for (std::size_t i = list.first; i < list.first + list.count; ++i) {
            const StarTestSweep& sweep = m_data.m_sweeps[i];
            const double top = list.RowTop(i);
            m_furniture.DrawText(kListLeft, top + m_furniture.Metrics().ascent(),
                SweepListText(sweep, i == m_data.m_iSelectedIndex), Align::Left,
                ToQColor(sweep.m_bAllPointsPassed ? Colour::kBlack : Colour::kRed));
            if (IsListedAsFailed(sweep))
                DrawResult(
                    m_painter, false, {kListSymbolX, top + kListRowHeight / 2.0}, kListSymbolSize);
        }
    }

    void DrawApplicationFactor()
    {
        const std::string text = ApplicationFactorText(m_data);
        if (!text.empty())
            m_furniture.DrawBoxedText(m_size.width() / 2.0,
                m_size.height() - m_furniture.Metrics().height() + m_furniture.Metrics().ascent()
                    - 2.0,
                text, Align::Centre, PlotColour::kInk);
    }

    void DrawCentimetreScale()
    {
        const StarTestSweep* const sweep = m_data.SelectedSweep();
        const ProfileView& view = m_content.plot.view;
        const auto labels = CentimetreLabels(
            view.length, view.first + view.length / 2.0, sweep ? sweep->m_iResolution : 0);
        const double baseline =
            m_area.bottom() + PlotFurniture::kTickLength + PlotFurniture::kRowHeight - 4.0;
        for (std::size_t k = 0; k < labels.size(); ++k) {
            const double x = std::round(
                m_area.left() + m_area.width() * static_cast<double>(k) / m_content.plot.gridParts);
            m_furniture.DrawLine(
                x, m_area.bottom(), x, m_area.bottom() + kScaleTick, PlotColour::kFrame);
            m_furniture.DrawText(x, baseline, labels[k], Align::Centre, PlotColour::kInk);
        }
    }

    void DrawResultSymbols()
    {
        constexpr std::size_t kFewestSweeps = 2;
        const double x = m_area.center().x();
        if (m_data.m_sweeps.size() >= kFewestSweeps)
            DrawResult(m_painter, RestartsEverywhere(m_data),
                {x, m_area.top() + m_area.height() * 0.25}, kResultSymbolSize);
        const StarTestSweep* const sweep = m_data.SelectedSweep();
        if (sweep && sweep->m_bShowSymbol)
            DrawResult(m_painter, sweep->m_bAllPointsPassed && sweep->m_bChecked,
                {x, m_area.top() + m_area.height() * 0.75}, kResultSymbolSize);
    }

    QPainter& m_painter;
    QSizeF m_size;
    const StarTestPlotContent& m_content;
    const StarTestData& m_data;
    ProfileScale m_scale;
    PlotFurniture m_furniture;
    QRectF m_area;
};

/// What the widest line of the list takes of the left margin.
double ListRight(const StarTestData& data)
{
    const QFontMetricsF metrics(FontOfHeight(kSansFace, PlotFurniture::kFontHeight));
    double width = 0.0;
    for (const StarTestSweep& sweep : data.m_sweeps)
        width = std::max(
            width, metrics.horizontalAdvance(QString::fromStdString(SweepListText(sweep, true))));
    return kListLeft + width;
}

} // namespace

void DrawStarTestPlot(QPainter& painter, QSizeF size, const StarTestPlotContent& content)
{
    CurvePlotContent plot = content.plot;
    if (content.data)
        plot.leftReserved = ListRight(*content.data);
    DrawCurvePlot(painter, size, plot);
    if (content.data)
        StarTestDrawing(painter, size, content).Draw();
}

void DrawStarTestPicture(QPainter& painter, QSizeF size, const StarTestPlotContent& content)
{
    CBasicTestControl::DrawGround(
        painter, static_cast<int>(size.width()), static_cast<int>(size.height()));
    DrawStarTestPlot(painter, size, content);
}

void DrawStarTestCursor(
    QPainter& painter, QSizeF size, const StarTestPlotContent& content, std::int64_t line)
{
    const StarTestSweep* const sweep = content.data ? content.data->SelectedSweep() : nullptr;
    constexpr double kFewestPoints = 2.0;
    if (!sweep || line < 0 || content.plot.view.length < kFewestPoints)
        return;
    DrawCurveCursor(painter, size, content.plot, line);
    const ProfileScale scale = CurvePlotScale(content.plot, size);
    const PlotFurniture furniture(painter, size, scale);
    painter.save();
    painter.setFont(furniture.Font());
    double top = scale.top + 2.0;
    for (const std::string& text :
        {CursorLineText(line), CursorDistanceText(line, sweep->m_iResolution)}) {
        const double width = furniture.WidthOf(text);
        painter.fillRect(
            QRectF(scale.left + 1.0, top, width, furniture.Metrics().height()), Qt::white);
        furniture.DrawText(scale.left + 1.0, top + furniture.Metrics().ascent(), text, Align::Left,
            PlotColour::kInk);
        top += furniture.Metrics().height();
    }
    painter.restore();
}

void DrawStarTestPage(QPainter& painter, const QRectF& page, const std::vector<std::string>& header,
    QSizeF plotSize, const StarTestPlotContent& content)
{
    DrawPlotPage(painter, page, header, plotSize,
        [&](QPainter& plot) { DrawStarTestPicture(plot, plotSize, content); });
}

SweepList SweepList::Of(const StarTestData& data, QSizeF size)
{
    SweepList list;
    list.top = std::floor(size.height() / 2.0);
    list.rowHeight = kListRowHeight;
    const std::size_t sweeps = data.m_sweeps.size();
    const auto room = static_cast<std::size_t>(
        std::max(std::floor((size.height() - list.top) / kListRowHeight), 1.0));
    list.count = std::min(sweeps, room);
    const std::size_t before = std::min(data.m_iSelectedIndex, list.count / 2);
    list.first = std::min(data.m_iSelectedIndex - before, sweeps - list.count);
    return list;
}

std::optional<std::size_t> SweepList::SweepAt(double y) const
{
    const double row = std::floor((y - top) / rowHeight);
    if (row < 0.0 || row >= static_cast<double>(count))
        return std::nullopt;
    return first + static_cast<std::size_t>(row);
}

} // namespace vireo
