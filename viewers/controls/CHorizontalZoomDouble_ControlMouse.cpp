// Mouse and keys of CHorizontalZoomDouble_Control.

#include "viewers/controls/CHorizontalZoomDouble_Control.h"

#include <QKeyEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace vireo {

namespace {

constexpr double kClickZoom = 2.0;
constexpr double kWheelZoom = 1.25;
/// The share of what is in view that an arrow key or a step of the wheel moves by.
constexpr double kStepShare = 0.1;

} // namespace

bool CHorizontalZoomDouble_Control::IsInPlot(QPoint point) const
{
    return point.x() >= PlotLeft() && point.x() <= PlotRight() && point.y() >= PlotTop()
        && point.y() <= PlotBottom();
}

double CHorizontalZoomDouble_Control::PointUnder(QPoint point) const
{
    const ProfileScale scale = CurvePlotScale(PlotContent(), PlotSize());
    return std::clamp(scale.PixelAt(point.x()), scale.view.first, scale.view.End());
}

/// Whether a click was meant for what can be switched: the zoom button, or a name of the legend.
bool CHorizontalZoomDouble_Control::TakeButtonOrLegend(QPoint point)
{
    if (ZoomButtonRect(PlotSize()).contains(point)) {
        SetZoomMode(!m_bZoomMode);
        return true;
    }
    const auto slot = LegendSlotAt(PlotContent(), PlotSize(), point);
    if (!slot)
        return false;
    CurveSlot& curve = m_curves.At(*slot);
    curve.isVisible = !curve.isVisible;
    ChangeView();
    return true;
}

void CHorizontalZoomDouble_Control::OnLButtonDown(unsigned, QPoint point)
{
    const bool isOnAxis = IsOnValueAxis(PlotContent(), PlotSize(), point);
    m_press = Press{point, m_zoom, m_scale, isOnAxis, false};
}

void CHorizontalZoomDouble_Control::Drag(QPoint point)
{
    constexpr int kThreshold = 4;
    Press& press = *m_press;
    const QPoint moved = point - press.from;
    const bool startsInside = press.isOnAxis || IsInPlot(press.from);
    if (!startsInside || (!press.isDrag && moved.manhattanLength() < kThreshold))
        return;
    press.isDrag = true;
    setCursor(press.isOnAxis ? Qt::SizeVerCursor : Qt::ClosedHandCursor);
    if (press.isOnAxis) {
        const double height = std::max(PlotBottom() - PlotTop(), 1);
        SetVerticalScale(
            press.scale.MovedBy(moved.y() * (press.scale.top - press.scale.bottom) / height));
    } else {
        const double width = std::max(PlotRight() - PlotLeft(), 1);
        SetZoom(press.zoom.MovedBy(-moved.x() * press.zoom.Span() / width));
    }
}

void CHorizontalZoomDouble_Control::OnLButtonUp(unsigned, QPoint point)
{
    const std::optional<Press> press = std::exchange(m_press, std::nullopt);
    unsetCursor();
    if (!press || press->isDrag || TakeButtonOrLegend(point))
        return;
    OnClick(point);
}

void CHorizontalZoomDouble_Control::OnClick(QPoint point)
{
    if (m_bZoomMode && IsInPlot(point))
        SetZoom(m_zoom.CentredOn(PointUnder(point), kClickZoom));
}

void CHorizontalZoomDouble_Control::OnLButtonDblClk(unsigned buttons, QPoint point)
{
    if (!m_bZoomMode && IsInPlot(point))
        ZoomAll();
    else
        OnLButtonDown(buttons, point);
}

void CHorizontalZoomDouble_Control::OnRButtonUp(unsigned, QPoint point)
{
    if (m_bZoomMode && IsInPlot(point))
        SetZoom(m_zoom.ZoomedAt(PointUnder(point), 1.0 / kClickZoom));
}

void CHorizontalZoomDouble_Control::OnMouseMove(unsigned buttons, QPoint point)
{
    if (m_press && (buttons & LeftButton) != 0)
        Drag(point);
    ReadCursor(point);
}

void CHorizontalZoomDouble_Control::ReadCursor(QPoint point)
{
    const std::int64_t line = IsInPlot(point) ? m_zoom.PointAt(point.x(), ClientWidth()) : -1;
    SetCursorLine(line >= 0 && line < m_curves.Points() ? line : -1);
}

void CHorizontalZoomDouble_Control::SetCursorLine(std::int64_t line)
{
    if (line == m_iCursorLine)
        return;
    m_iCursorLine = line;
    emit CursorMoved(line);
    update();
}

void CHorizontalZoomDouble_Control::OnMouseLeave(unsigned, QPoint)
{
    SetCursorLine(-1);
}

void CHorizontalZoomDouble_Control::wheelEvent(QWheelEvent* event)
{
    constexpr int kStep = 120; // Eighths of a degree.
    const QPoint turned = event->angleDelta();
    const bool pans = std::abs(turned.x()) > std::abs(turned.y())
        || (event->modifiers() & Qt::ShiftModifier) != 0;
    if (pans) {
        const int angle = turned.x() != 0 ? turned.x() : turned.y();
        SetZoom(m_zoom.MovedBy(-angle * kStepShare / kStep * m_zoom.Span()));
    } else {
        m_wheelRest += turned.y();
        const int steps = m_wheelRest / kStep;
        m_wheelRest -= steps * kStep;
        if (steps != 0)
            TurnWheel(event->position().toPoint(), steps, event->modifiers());
    }
    ReadCursor(event->position().toPoint());
    event->accept();
}

void CHorizontalZoomDouble_Control::TurnWheel(QPoint point, int steps, Qt::KeyboardModifiers keys)
{
    const double times = std::pow(kWheelZoom, steps);
    const CurvePlotContent content = PlotContent();
    if (IsOnValueAxis(content, PlotSize(), point) || (keys & Qt::ControlModifier) != 0)
        SetVerticalScale(
            m_scale.ZoomedAt(CurvePlotScale(content, PlotSize()).ValueAt(point.y()), times));
    else
        SetZoom(m_zoom.ZoomedAt(PointUnder(point), times));
}

void CHorizontalZoomDouble_Control::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        return SetZoom(m_zoom.MovedBy(-kStepShare * m_zoom.Span()));
    case Qt::Key_Right:
        return SetZoom(m_zoom.MovedBy(kStepShare * m_zoom.Span()));
    case Qt::Key_Plus:
        return ZoomIn();
    case Qt::Key_Minus:
        return ZoomOut();
    case Qt::Key_Home:
        return ZoomAll();
    default:
        CSymbolTestControl::keyPressEvent(event);
    }
}

} // namespace vireo
