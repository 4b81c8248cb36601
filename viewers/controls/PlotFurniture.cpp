#include "viewers/controls/PlotFurniture.h"

#include "viewers/controls/Fonts.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace vireo {

namespace {

/// How many ticks an axis has room for.
int RoomForTicks(double length, double perTick)
{
    return std::max(static_cast<int>(length / perTick), 2);
}

} // namespace

PlotFurniture::PlotFurniture(QPainter& painter, QSizeF size, const ProfileScale& scale)
    : m_painter(painter),
      m_size(size),
      m_scale(scale),
      m_area(scale.left, scale.top, scale.width, scale.height),
      m_font(FontOfHeight(kSansFace, kFontHeight)),
      m_metrics(m_font)
{
}

double PlotFurniture::WidthOf(const std::string& text) const
{
    return m_metrics.horizontalAdvance(QString::fromStdString(text));
}

void PlotFurniture::DrawFrame() const
{
    const QRectF& area = m_area;
    DrawLine(area.left(), area.top(), area.right(), area.top(), PlotColour::kFrame);
    DrawLine(area.left(), area.bottom(), area.right(), area.bottom(), PlotColour::kFrame);
    DrawLine(area.left(), area.top(), area.left(), area.bottom(), PlotColour::kFrame);
    DrawLine(area.right(), area.top(), area.right(), area.bottom(), PlotColour::kFrame);
}

void PlotFurniture::DrawValueAxis(double highest) const
{
    constexpr double kRoomPerTick = 34.0;
    for (const AxisTick& tick :
        AxisTicks(m_scale.low, highest, RoomForTicks(m_area.height(), kRoomPerTick))) {
        DrawValueTick(tick.value);
        DrawValueText(tick);
    }
}

void PlotFurniture::DrawValueTick(double value) const
{
    const double y = m_scale.YAt(value);
    DrawLine(m_area.left(), y, m_area.right(), y, PlotColour::kGrid);
    DrawLine(m_area.left() - kTickLength, y, m_area.left(), y, PlotColour::kFrame);
}

void PlotFurniture::DrawValueText(const AxisTick& tick) const
{
    DrawText(m_area.left() - kTickLength - 3.0,
        m_scale.YAt(tick.value) + m_metrics.capHeight() / 2.0, tick.text, Align::Right,
        PlotColour::kInk);
}

void PlotFurniture::DrawPositionAxis(const PositionAxis& axis) const
{
    constexpr double kRoomPerTick = 90.0;
    const bool isFirst = axis.row == 0;
    const QColor colour = isFirst ? PlotColour::kInk : PlotColour::kSoftInk;
    const double baseline = m_area.bottom() + kTickLength + (axis.row + 1) * kRowHeight - 4.0;
    const ProfileView& view = m_scale.view;
    for (const AxisTick& tick : AxisTicks(view.first * axis.perPixel, view.End() * axis.perPixel,
             RoomForTicks(m_area.width(), kRoomPerTick))) {
        const double x = m_scale.XAt(tick.value / axis.perPixel);
        if (isFirst) {
            DrawLine(x, m_area.top(), x, m_area.bottom(), PlotColour::kGrid);
            DrawLine(x, m_area.bottom(), x, m_area.bottom() + kTickLength, PlotColour::kFrame);
        }
        DrawTickText(x, baseline, tick, colour);
    }
    DrawText(axis.unitLeft, baseline, axis.unit, Align::Left, PlotColour::kSoftInk);
}

void PlotFurniture::DrawTitle(const std::string& title) const
{
    const QString fitting = m_metrics.elidedText(
        QString::fromStdString(title), Qt::ElideRight, m_size.width() - m_area.left());
    DrawText(
        m_area.left(), kTitleHeight - 6.0, fitting.toStdString(), Align::Left, PlotColour::kInk);
}

void PlotFurniture::DrawLimits(std::span<const LimitLevel> levels) const
{
    constexpr double kBeforeLabel = 8.0;
    constexpr double kBesideLine = 3.0;
    std::vector<double> baselines;
    for (const LimitLevel& level : levels) {
        const double y = std::floor(m_scale.YAt(level.value));
        // Not of a value that is no number, either.
        if (!(y >= m_area.top() && y <= m_area.bottom()))
            continue;
        DrawLine(m_area.left(), y, m_area.right(), y, PlotColour::kLimit, LineStyle::Dashed);
        const double below = y + kBesideLine + m_metrics.ascent();
        const bool isBelow = level.isLowest && below <= m_area.bottom();
        const double baseline =
            isBelow ? below : std::max(y - kBesideLine, m_area.top() + m_metrics.ascent());
        const bool isFree = std::ranges::all_of(baselines,
            [&](double other) { return std::abs(other - baseline) >= m_metrics.height(); });
        if (!isFree)
            continue;
        baselines.push_back(baseline);
        DrawBoxedText(
            m_area.left() + kBeforeLabel, baseline, level.label, Align::Left, PlotColour::kLimit);
    }
}

double PlotFurniture::AlignedLeft(double x, double width, Align align) const
{
    if (align == Align::Left)
        return x;
    return align == Align::Right ? x - width : x - width / 2.0;
}

void PlotFurniture::DrawText(
    double x, double baseline, const std::string& text, Align align, const QColor& colour) const
{
    const QString shown = QString::fromStdString(text);
    const double width = align == Align::Left ? 0.0 : m_metrics.horizontalAdvance(shown);
    m_painter.setPen(colour);
    m_painter.drawText(QPointF(AlignedLeft(x, width, align), baseline), shown);
}

/// Centred under its tick but kept within the drawing.
void PlotFurniture::DrawTickText(
    double x, double baseline, const AxisTick& tick, const QColor& colour) const
{
    const double width = WidthOf(tick.text);
    const double left = std::min(x - width / 2.0, m_size.width() - width - 1.0);
    DrawText(left, baseline, tick.text, Align::Left, colour);
}

void PlotFurniture::DrawBoxedText(
    double x, double baseline, const std::string& text, Align align, const QColor& colour) const
{
    const double width = WidthOf(text);
    const double left = AlignedLeft(x, width, align);
    m_painter.fillRect(
        QRectF(left - 3.0, baseline - m_metrics.ascent(), width + 6.0, m_metrics.height()),
        QColor(255, 255, 255, 215));
    DrawText(left, baseline, text, Align::Left, colour);
}

void PlotFurniture::DrawLine(
    double x1, double y1, double x2, double y2, const QColor& colour, LineStyle style) const
{
    DrawStraightLine(m_painter, {x1, y1}, {x2, y2}, colour, style);
}

} // namespace vireo
