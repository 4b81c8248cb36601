#include "viewers/controls/CLinePlot.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>

namespace vireo {

CLinePlot::CLinePlot(QWidget* parent) : QWidget(parent)
{
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CLinePlot::SetScrollBar(QScrollBar* scrollBar)
{
    m_scrollBar = scrollBar;
    connect(scrollBar, &QScrollBar::valueChanged, this, [this](int first) { ScrollTo(first); });
    UpdateScrollBar();
}

void CLinePlot::UpdateScrollBar()
{
    if (!m_scrollBar)
        return;
    const ScrollState state = Scrolled();
    const int hidden = std::max(state.length - state.page, 0);
    const QSignalBlocker quiet(m_scrollBar);
    m_scrollBar->setRange(0, hidden);
    m_scrollBar->setPageStep(std::max(state.page, 1));
    m_scrollBar->setSingleStep(std::max(state.page / 10, 1));
    m_scrollBar->setValue(state.first);
    m_scrollBar->setEnabled(hidden > 0);
}

void CLinePlot::OnViewChanged()
{
    UpdateScrollBar();
    emit ViewChanged();
    Redraw();
}

void CLinePlot::Redraw()
{
    m_picture = QImage();
    // Something else may lie under a resting pointer now.
    if (m_cursorPoint)
        MoveCursor(m_cursorPoint);
    update();
}

void CLinePlot::MoveCursor(std::optional<QPoint> point)
{
    m_cursorPoint = point;
    ReadCursor(point);
    update();
}

void CLinePlot::paintEvent(QPaintEvent*)
{
    const qreal ratio = devicePixelRatioF();
    const QSize deviceSize = (QSizeF(size()) * ratio).toSize();
    if (m_picture.size() != deviceSize) {
        m_picture = QImage(deviceSize, QImage::Format_RGB32);
        m_picture.setDevicePixelRatio(ratio);
        QPainter painter(&m_picture);
        DrawPlot(painter);
    }
    QPainter painter(this);
    painter.drawImage(QPoint(0, 0), m_picture);
    DrawCursor(painter);
}

void CLinePlot::resizeEvent(QResizeEvent*)
{
    Redraw();
}

void CLinePlot::mousePressEvent(QMouseEvent* event)
{
    const bool pans = event->button() == Qt::MiddleButton
        || (event->button() == Qt::LeftButton && event->modifiers() & Qt::ShiftModifier);
    if (pans) {
        m_dragFromX = event->pos().x();
        setCursor(Qt::ClosedHandCursor);
    } else if (event->button() == Qt::LeftButton) {
        OnLButtonDown(event->pos());
    } else if (event->button() == Qt::RightButton) {
        OnRButtonDown(event->pos());
    }
}

void CLinePlot::mouseReleaseEvent(QMouseEvent*)
{
    m_dragFromX.reset();
    unsetCursor();
}

void CLinePlot::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void CLinePlot::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragFromX) {
        DragView(*m_dragFromX, event->pos().x());
        m_dragFromX = event->pos().x();
    }
    MoveCursor(event->pos());
}

void CLinePlot::wheelEvent(QWheelEvent* event)
{
    constexpr int kStep = 120; // Eighths of a degree.
    constexpr double kSharePerStep = 0.1;
    const QPoint turned = event->angleDelta();
    if (std::abs(turned.x()) > std::abs(turned.y())) {
        MoveView(-turned.x() * kSharePerStep / kStep);
    } else {
        m_wheelRest += turned.y();
        const int steps = m_wheelRest / kStep;
        m_wheelRest -= steps * kStep;
        if (steps != 0)
            OnMouseWheel(event->position().toPoint(), steps);
    }
    MoveCursor(event->position().toPoint());
    event->accept();
}

void CLinePlot::leaveEvent(QEvent*)
{
    MoveCursor(std::nullopt);
}

} // namespace vireo
