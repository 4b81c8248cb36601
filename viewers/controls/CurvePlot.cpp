#include "viewers/controls/CurvePlot.h"

#include "viewers/controls/CBasicTestControl.h"
#include "viewers/controls/Colours.h"
#include "viewers/controls/Fonts.h"
#include "viewers/controls/PlotFurniture.h"
#include "viewers/controls/TraceDrawing.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace vireo {

namespace {

using Align = PlotFurniture::Align;

// Layout, in logical units.
constexpr double kLegendTop = 5.0;
constexpr double kLegendRow = 16.0;
constexpr double kSwatch = 10.0;
constexpr double kSwatchGap = 5.0;
constexpr double kEntryGap = 16.0;
constexpr double kTitleRoom = 17.0;
constexpr double kButtonLeft = 7.0;
constexpr double kButtonTop = 6.0;
constexpr double kButtonWidth = 64.0;
constexpr double kButtonHeight = 20.0;
constexpr double kNarrowestButton = 24.0;
/// Left of the plot, what the widest usual value needs.
constexpr double kValueRoom = 48.0;

/// An entry of the legend: a box in the curve's colour and its name.
struct LegendEntry {
    std::size_t slot = 0;
    QRectF place;
};

bool IsListed(const CurvePlotContent& content, const CurveSlot& slot)
{
    return slot.IsUsed() && (slot.isVisible || content.target == CurvePlotContent::Target::Screen);
}

/// The entries side by side over the plot, in as many rows as they need.
std::vector<LegendEntry> LayOutLegend(
    const CurvePlotContent& content, QSizeF size, const QFontMetricsF& metrics)
{
    std::vector<LegendEntry> entries;
    if (!content.curves)
        return entries;
    const double left = CurvePlotScale(content, size).left;
    QPointF corner(left, kLegendTop);
    for (std::size_t i = 0; i < CurveSlots::kSlots; ++i) {
        const CurveSlot& slot = content.curves->At(i);
        if (!IsListed(content, slot))
            continue;
        const double width = kSwatch + kSwatchGap
            + metrics.horizontalAdvance(QString::fromStdString(slot.name)) + kEntryGap;
        if (corner.x() > left && corner.x() + width > size.width())
            corner = {left, corner.y() + kLegendRow};
        entries.push_back({i, QRectF(corner, QSizeF(width, kLegendRow))});
        corner.rx() += width;
    }
    return entries;
}

/// One drawing of a plot: what its steps share.
class CurveDrawing {
public:
    CurveDrawing(QPainter& painter, QSizeF size, const CurvePlotContent& content)
        : m_painter(painter),
          m_size(size),
          m_content(content),
          m_scale(CurvePlotScale(content, size)),
          m_furniture(painter, size, m_scale),
          m_area(m_furniture.Area())
    {
    }

    void Draw()
    {
        m_painter.save();
        m_painter.setFont(m_furniture.Font());
        DrawGrid();
        const bool hasCurves = m_content.curves && m_content.curves->Points() > 0;
        if (hasCurves) {
            if (HasRoomForPoints())
                m_furniture.DrawPositionAxis({m_content.pointName, 1.0, m_content.pointAxisRow,
                    std::max(m_area.left() - kValueRoom, 2.0)});
            DrawCurves();
            m_furniture.DrawLimits(m_content.limits);
        }
        DrawValueTexts();
        m_furniture.DrawFrame();
        DrawLegend();
        if (m_content.target == CurvePlotContent::Target::Screen)
            DrawZoomButton();
        m_painter.restore();
    }

private:
    void DrawGrid()
    {
        for (const double value : m_content.scale.GridLines())
            m_furniture.DrawValueTick(value);
        for (int part = 1; part < m_content.gridParts; ++part) {
            const double x =
                std::round(m_area.left() + m_area.width() * part / m_content.gridParts);
            m_furniture.DrawLine(x, m_area.top(), x, m_area.bottom(), PlotColour::kGrid);
        }
        constexpr double kNone = 0.0;
        if (m_scale.low < kNone && m_scale.high > kNone)
            m_furniture.DrawLine(m_area.left(), m_scale.YAt(kNone), m_area.right(),
                m_scale.YAt(kNone), PlotColour::kSoftInk);
    }

    bool HasRoomForPoints() const
    {
        return m_area.bottom() + PlotFurniture::kTickLength
            + (m_content.pointAxisRow + 1) * PlotFurniture::kRowHeight
            <= m_size.height() + 2.0;
    }

    void DrawCurves()
    {
        // A curve's points are drawn in the middle of their pixels; here they lie at their numbers.
        ProfileScale scale = m_scale;
        scale.view.first += 0.5;
        m_painter.save();
        m_painter.setClipRect(m_area.toAlignedRect());
        std::vector<StyledTrace> traces;
        for (const CurveSlot& slot : m_content.curves->All())
            if (slot.IsShown())
                traces.push_back({{slot.values, slot.pyramid}, ToQColor(slot.colour),
                    slot.isDashed ? LineStyle::Dashed : LineStyle::Solid});
        DrawTraces(m_painter, scale, traces);
        m_painter.restore();
    }

    enum class ValuePlace { Left, Right, Inside };

    /// Left of the plot, or where somebody else's texts leave no room there, right of it.
    ValuePlace PlaceOfValues(double width) const
    {
        constexpr double kGaps = PlotFurniture::kTickLength + 7.0;
        if (m_area.left() - m_content.leftReserved >= width + kGaps)
            return ValuePlace::Left;
        return m_size.width() - m_area.right() >= width + kGaps ? ValuePlace::Right
                                                                : ValuePlace::Inside;
    }

    void DrawValueTexts()
    {
        std::vector<AxisTick> ticks;
        double width = m_furniture.WidthOf(m_content.valueUnit);
        for (const double value : m_content.scale.GridLines()) {
            ticks.push_back({value, ValueText(value)});
            width = std::max(width, m_furniture.WidthOf(ticks.back().text));
        }
        const ValuePlace place = PlaceOfValues(width);
        for (const AxisTick& tick : ticks)
            DrawValueText(tick, place);
        if (place == ValuePlace::Left)
            m_furniture.DrawText(m_area.left() - PlotFurniture::kTickLength - 3.0,
                m_area.top() - 9.0, m_content.valueUnit, Align::Right, PlotColour::kSoftInk);
        else if (!ticks.empty()) // Above the plot's corner stands the legend.
            DrawUnitBelow(ticks.back().value, place);
    }

    void DrawValueText(const AxisTick& tick, ValuePlace place)
    {
        const double y = m_scale.YAt(tick.value);
        if (place == ValuePlace::Left) {
            m_furniture.DrawValueText(tick);
        } else if (place == ValuePlace::Right) {
            m_furniture.DrawLine(m_area.right(), y, m_area.right() + PlotFurniture::kTickLength, y,
                PlotColour::kFrame);
            m_furniture.DrawText(RightOfPlot(), y + m_furniture.Metrics().capHeight() / 2.0,
                tick.text, Align::Left, PlotColour::kInk);
        } else {
            m_furniture.DrawBoxedText(
                m_area.left() + 6.0, TextLineAt(y), tick.text, Align::Left, PlotColour::kInk);
        }
    }

    void DrawUnitBelow(double value, ValuePlace place)
    {
        const double left = place == ValuePlace::Right ? RightOfPlot() : m_area.left() + 6.0;
        m_furniture.DrawText(left,
            TextLineAt(m_scale.YAt(value)) + m_furniture.Metrics().height() + 1.0,
            m_content.valueUnit, Align::Left, PlotColour::kSoftInk);
    }

    double RightOfPlot() const { return m_area.right() + PlotFurniture::kTickLength + 3.0; }

    /// As many decimals as the grid's step needs.
    std::string ValueText(double value) const
    {
        const QString step = QString::number(m_content.scale.gridStep, 'g', 3);
        const auto point = step.indexOf(QLatin1Char('.'));
        const bool isPlain = !step.contains(QLatin1Char('e'));
        const auto decimals = point < 0 ? 0 : static_cast<int>(step.size() - point) - 1;
        return (isPlain ? QString::number(value, 'f', decimals) : QString::number(value, 'g', 4))
            .toStdString();
    }

    /// The base line of a text centred at a height, kept within the plot.
    double TextLineAt(double y) const
    {
        const double middle = m_furniture.Metrics().capHeight() / 2.0;
        return std::clamp(y + middle, m_area.top() + m_furniture.Metrics().ascent(),
            std::max(m_area.bottom() - 3.0, m_area.top() + m_furniture.Metrics().ascent()));
    }

    void DrawLegend()
    {
        const std::vector<LegendEntry> entries =
            LayOutLegend(m_content, m_size, m_furniture.Metrics());
        for (const LegendEntry& entry : entries)
            DrawLegendEntry(m_content.curves->At(entry.slot), entry.place);
        const double bottom = entries.empty() ? kLegendTop : entries.back().place.bottom();
        if (m_area.top() - bottom >= kTitleRoom)
            m_furniture.DrawText(
                m_area.left(), m_area.top() - 6.0, m_content.title, Align::Left, PlotColour::kInk);
        else if (!m_content.title.empty()) // In the plot, away from the limits' texts.
            m_furniture.DrawBoxedText(m_area.right() - 6.0,
                m_area.top() + m_furniture.Metrics().ascent() + 2.0, m_content.title, Align::Right,
                PlotColour::kInk);
    }

    void DrawLegendEntry(const CurveSlot& slot, const QRectF& place)
    {
        const QColor colour = ToQColor(slot.colour);
        const QRectF swatch(place.left(), place.center().y() - kSwatch / 2.0, kSwatch, kSwatch);
        m_painter.fillRect(swatch, colour);
        // A hidden curve's box is an empty frame.
        if (!slot.isVisible)
            m_painter.fillRect(swatch.adjusted(1.0, 1.0, -1.0, -1.0), Qt::white);
        m_furniture.DrawText(swatch.right() + kSwatchGap,
            place.center().y() + m_furniture.Metrics().capHeight() / 2.0, slot.name, Align::Left,
            slot.isVisible ? PlotColour::kInk : PlotColour::kSoftInk);
    }

    void DrawZoomButton()
    {
        const QRectF button = ZoomButtonRect(m_size);
        if (button.isEmpty())
            return;
        const bool isDown = m_content.isZoomMode;
        m_painter.save();
        m_painter.setRenderHint(QPainter::Antialiasing, true);
        m_painter.setPen(QPen(PlotColour::kFrame, 1.0));
        m_painter.setBrush(isDown ? QColor(205, 220, 240) : QColor(243, 244, 246));
        m_painter.drawRoundedRect(button.adjusted(0.5, 0.5, -0.5, -0.5), 3.0, 3.0);
        m_painter.restore();
        m_furniture.DrawText(button.center().x(),
            button.center().y() + m_furniture.Metrics().capHeight() / 2.0, "Zoom", Align::Centre,
            PlotColour::kInk);
    }

    QPainter& m_painter;
    QSizeF m_size;
    const CurvePlotContent& m_content;
    ProfileScale m_scale;
    PlotFurniture m_furniture;
    QRectF m_area;
};

} // namespace

ProfileScale CurvePlotScale(const CurvePlotContent& content, QSizeF size)
{
    const auto margins = CBasicTestControl::MarginsOf(
        static_cast<int>(std::floor(size.width())), static_cast<int>(std::floor(size.height())));
    ProfileScale scale;
    scale.view = content.view;
    scale.view.length = std::max(scale.view.length, 1.0);
    const VerticalScale values = content.scale.IsValid() ? content.scale : VerticalScale();
    scale.low = values.bottom;
    scale.high = values.top;
    scale.left = margins.left;
    scale.top = margins.top;
    scale.width = std::max(margins.right - margins.left, 1);
    scale.height = std::max(margins.bottom - margins.top, 1);
    return scale;
}

void DrawCurvePlot(QPainter& painter, QSizeF size, const CurvePlotContent& content)
{
    CurveDrawing(painter, size, content).Draw();
}

std::optional<std::size_t> LegendSlotAt(const CurvePlotContent& content, QSizeF size, QPointF place)
{
    const QFontMetricsF metrics(FontOfHeight(kSansFace, PlotFurniture::kFontHeight));
    for (const LegendEntry& entry : LayOutLegend(content, size, metrics))
        if (entry.place.contains(place))
            return entry.slot;
    return std::nullopt;
}

QRectF ZoomButtonRect(QSizeF size)
{
    const double width = std::min(kButtonWidth, std::floor(size.width() / 10.0) - 2 * kButtonLeft);
    return width < kNarrowestButton ? QRectF()
                                    : QRectF(kButtonLeft, kButtonTop, width, kButtonHeight);
}

bool IsOnValueAxis(const CurvePlotContent& content, QSizeF size, QPointF place)
{
    const ProfileScale scale = CurvePlotScale(content, size);
    return place.x() >= scale.left - kValueRoom && place.x() < scale.left && place.y() >= scale.top
        && place.y() <= scale.Bottom();
}

} // namespace vireo
