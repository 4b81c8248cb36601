#include "viewers/noise/NoisePlot.h"

#include "limits/LimitLevels.h"
#include "platform/Text.h"
#include "viewers/controls/Colours.h"
#include "viewers/controls/PlotCursor.h"
#include "viewers/controls/PlotFurniture.h"
#include "viewers/controls/PrintPageLayout.h"
#include "viewers/controls/ProfilePlot.h"
#include "viewers/controls/StraightLine.h"
#include "viewers/controls/TraceDrawing.h"
#include "viewers/noise/NoiseData.h"
#include "viewers/noise/NoiseMarkLayout.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace vireo {

namespace {

using Align = PlotFurniture::Align;

// Layout, in logical units.
constexpr double kRightMargin = 44.0;
constexpr int kTickRows = 2;
constexpr double kLevels = 256.0;

const QColor kBandColour(246, 249, 243);
const QColor kLimitColour = ToQColor(Colour::kRed);
const QColor kAverageColour = ToQColor(Colour::kGreen);
const QColor kAverageInk(0, 120, 0);
const QColor kLimitInk(190, 0, 0);

QColor MarkColour(ShownColour shown)
{
    constexpr ColourValue kGray = 0x7F7F7F;
    return ToQColor(shown == ShownColour::Gray ? kGray : ColourOfIndex(static_cast<int>(shown)));
}

/// The figure of the shown plane's average. The one plane of a gray file is told as green.
std::string NameOfAverage(const NoiseData& data)
{
    const ShownColour shown = data.m_bHasColour ? data.m_shown : ShownColour::Green;
    return "averages." + LowerAscii(ColourName(shown));
}

/// One drawing of a plot: what its steps share.
class NoiseDrawing {
public:
    NoiseDrawing(QPainter& painter, QSizeF size, const NoisePlotContent& content)
        : m_painter(painter),
          m_size(size),
          m_content(content),
          m_plane(content.data ? content.data->ShownPlane() : nullptr),
          m_band(m_plane ? m_plane->Band() : NoiseBand()),
          m_scale(NoiseScaleOf(content, size)),
          m_furniture(painter, size, m_scale),
          m_area(m_furniture.Area())
    {
    }

    void Draw()
    {
        m_painter.save();
        m_painter.setFont(m_furniture.Font());
        m_painter.fillRect(QRectF({0, 0}, m_size), Qt::white);
        const bool hasBand = LineLength() >= NoiseBand::kFewestPixels;
        if (hasBand)
            FillBand();
        if (LineLength() > 0) {
            constexpr double kHighestValue = 255.0;
            m_furniture.DrawValueAxis(kHighestValue);
            DrawPositionAxes();
        }
        if (m_plane)
            DrawCurve();
        if (hasBand)
            DrawBandLines();
        if (m_plane)
            m_furniture.DrawLimits(LevelsOf(m_content.limits, NameOfAverage(*m_content.data)));
        if (m_plane && hasBand)
            DrawMarks();
        DrawTitle();
        m_furniture.DrawFrame();
        m_painter.restore();
    }

private:
    std::int32_t LineLength() const { return m_content.data ? m_content.data->m_iLineLength : 0; }

    void FillBand()
    {
        const double top = std::max(m_scale.YAt(m_band.Upper()), m_area.top());
        const double bottom = m_scale.YAt(m_band.Lower());
        m_painter.fillRect(QRectF(m_area.left(), top, m_area.width(), bottom - top), kBandColour);
    }

    void DrawPositionAxes()
    {
        m_furniture.DrawPositionAxis(
            {std::string(UnitSymbol(m_content.unit)), m_content.Ruler().PositionOf(1.0), 0});
        m_furniture.DrawPositionAxis({"px", 1.0, 1});
    }

    void DrawCurve()
    {
        m_painter.save();
        m_painter.setClipRect(m_area.toAlignedRect());
        DrawTrace(m_painter, m_scale, {m_plane->trace.samples, m_plane->trace.pyramid},
            TraceColour(m_content.data->m_shown));
        m_painter.restore();
    }

    /// The limits in red with the average in green between them, over the curve; what they are
    /// stands in the right margin, the limits only where the three do not cover each other.
    void DrawBandLines()
    {
        DrawLevel(m_band.Upper(), kLimitColour);
        DrawLevel(m_band.average, kAverageColour);
        DrawLevel(m_band.Lower(), kLimitColour);
        LabelLevel(m_band.average, std::to_string(m_band.average), kAverageInk);
        if (m_scale.YAt(m_band.average) - m_scale.YAt(m_band.Upper())
            < m_furniture.Metrics().ascent())
            return;
        LabelLevel(m_band.Upper(), Format("+%d %%", NoiseBand::kPercent), kLimitInk);
        LabelLevel(m_band.Lower(), Format("-%d %%", NoiseBand::kPercent), kLimitInk);
    }

    bool IsOnPlot(double level) const { return level >= 0.0 && level <= kLevels; }

    void DrawLevel(double level, const QColor& colour)
    {
        const double y = std::floor(m_scale.YAt(level));
        if (IsOnPlot(level))
            m_furniture.DrawLine(m_area.left(), y, m_area.right(), y, colour);
    }

    void LabelLevel(double level, const std::string& text, const QColor& colour)
    {
        constexpr double kGap = 5.0;
        if (IsOnPlot(level))
            m_furniture.DrawText(m_area.right() + kGap,
                m_scale.YAt(level) + m_furniture.Metrics().capHeight() / 2.0, text, Align::Left,
                colour);
    }

    void DrawMarks()
    {
        const std::vector<PlacedNoiseMark> marks = PlaceNoiseMarks(*m_plane, m_scale);
        m_painter.save();
        m_painter.setClipRect(m_area.toAlignedRect());
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(MarkColour(m_content.data->m_shown));
        if (IsRaster(m_painter))
            DrawTrianglesAsRows(marks);
        else
            DrawTrianglesAsShapes(marks);
        const NoiseLabelMetrics metrics{
            [this](const std::string& text) { return m_furniture.WidthOf(text); },
            m_furniture.Metrics().height()};
        for (const PlacedNoiseLabel& label :
            PlaceNoiseLabels(marks, m_content.Ruler(), m_scale, metrics))
            m_furniture.DrawBoxedText(label.left, label.top + m_furniture.Metrics().ascent(),
                label.text, Align::Left, PlotColour::kInk);
        m_painter.restore();
    }

    /// Row k is k units wide to each side of the tip. All rows of all marks are one call, which
    /// takes a fraction of the time of as many shapes.
    void DrawTrianglesAsRows(const std::vector<PlacedNoiseMark>& marks)
    {
        std::vector<QRect> rows;
        rows.reserve(marks.size() * PlacedNoiseMark::kTriangleRows);
        for (const PlacedNoiseMark& mark : marks) {
            const auto x = static_cast<int>(std::floor(mark.x));
            const auto y = static_cast<int>(std::floor(mark.y));
            for (int row = 0; row < PlacedNoiseMark::kTriangleRows; ++row)
                rows.emplace_back(x - row, y + row, 2 * row + 1, 1);
        }
        m_painter.drawRects(rows.data(), static_cast<int>(rows.size()));
    }

    void DrawTrianglesAsShapes(const std::vector<PlacedNoiseMark>& marks)
    {
        constexpr double kHeight = PlacedNoiseMark::kTriangleRows;
        for (const PlacedNoiseMark& mark : marks)
            m_painter.drawPolygon(QPolygonF({{mark.x, mark.y}, {mark.x + kHeight, mark.y + kHeight},
                {mark.x - kHeight, mark.y + kHeight}}));
    }

    std::size_t CountInView(NoiseMarkKind kind) const
    {
        return NoiseMarksInView(m_plane->trace.samples, m_plane->Marks(kind), m_band, kind,
            static_cast<std::int64_t>(std::floor(m_scale.view.first)),
            static_cast<std::int64_t>(std::ceil(m_scale.view.End())))
            .Count();
    }

    void DrawTitle()
    {
        if (!m_plane)
            return;
        std::string title = std::string(ColourName(m_content.data->m_shown))
            + Format("   average %d", m_plane->average);
        if (LineLength() >= NoiseBand::kFewestPixels)
            title += Format("   dips %zu   peaks %zu", CountInView(NoiseMarkKind::Dip),
                CountInView(NoiseMarkKind::Peak));
        m_furniture.DrawTitle(title);
    }

    QPainter& m_painter;
    QSizeF m_size;
    const NoisePlotContent& m_content;
    const NoisePlane* m_plane;
    NoiseBand m_band;
    ProfileScale m_scale;
    PlotFurniture m_furniture;
    QRectF m_area;
};

} // namespace

NoiseRuler NoisePlotContent::Ruler() const
{
    if (!data)
        return {0, NoiseData::kDefaultWidthFactor, unit};
    return {data->m_iLineLength, data->m_dWidthFactor, unit};
}

ProfileScale NoiseScaleOf(const NoisePlotContent& content, QSizeF size)
{
    ProfileScale scale;
    scale.view = content.view;
    scale.view.length = std::max(scale.view.length, 1.0);
    scale.low = 0.0;
    scale.high = kLevels;
    scale.left = PlotFurniture::kLeftMargin;
    // Whole units keep the frame, the grid and the columns of a raster on device pixels.
    scale.top = PlotFurniture::kTitleHeight;
    scale.width =
        std::max(std::floor(size.width() - PlotFurniture::kLeftMargin - kRightMargin), 1.0);
    scale.height =
        std::max(std::floor(size.height() - PlotFurniture::kTitleHeight - PlotFurniture::kTickLength
                     - kTickRows * PlotFurniture::kRowHeight - 2.0),
            1.0);
    return scale;
}

void DrawNoisePlot(QPainter& painter, QSizeF size, const NoisePlotContent& content)
{
    NoiseDrawing(painter, size, content).Draw();
}

void DrawNoiseCursor(
    QPainter& painter, QSizeF size, const NoisePlotContent& content, std::int64_t pixel)
{
    const NoisePlane* plane = content.data ? content.data->ShownPlane() : nullptr;
    if (!plane || pixel < 0 || pixel >= std::ssize(plane->trace.samples))
        return;
    const ProfileScale scale = NoiseScaleOf(content, size);
    const auto index = static_cast<double>(pixel);
    const int value = plane->trace.samples[static_cast<std::size_t>(pixel)];
    const std::string text = Format("%.2f %s   px %lld   %d", content.Ruler().PositionOf(index),
        std::string(UnitSymbol(content.unit)).c_str(), static_cast<long long>(pixel), value);
    DrawPlotCursor(painter, scale, QPointF(scale.XAt(index + 0.5), scale.YAt(value)),
        QString::fromStdString(text));
}

void DrawNoisePage(QPainter& painter, const QRectF& page, const std::vector<std::string>& header,
    QSizeF plotSize, const NoisePlotContent& content)
{
    DrawPlotPage(painter, page, header, plotSize,
        [&](QPainter& plot) { DrawNoisePlot(plot, plotSize, content); });
}

} // namespace vireo
