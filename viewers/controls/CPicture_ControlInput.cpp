// Scroll bars, mouse and keys of CPicture_Control.

#include "viewers/controls/CPicture_Control.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <cmath>
#include <cstdlib>

namespace vireo {

namespace {

constexpr int kWheelStep = 120; // Eighths of a degree.

std::optional<PictureStep> StepOfAction(int action)
{
    switch (action) {
    case QAbstractSlider::SliderSingleStepSub:
        return PictureStep::LineBack;
    case QAbstractSlider::SliderSingleStepAdd:
        return PictureStep::LineForward;
    case QAbstractSlider::SliderPageStepSub:
        return PictureStep::PageBack;
    case QAbstractSlider::SliderPageStepAdd:
        return PictureStep::PageForward;
    default:
        return std::nullopt;
    }
}

PictureView Moved(const PictureView& view, PictureAxis PictureView::*axis, std::int64_t pixels)
{
    return axis == &PictureView::x ? view.MovedBy(pixels, 0) : view.MovedBy(0, pixels);
}

} // namespace

void CPicture_Control::SetScrollBars(QScrollBar* horizontal, QScrollBar* vertical)
{
    m_horizontal = horizontal;
    m_vertical = vertical;
    ConnectScrollBar(horizontal, &PictureView::x);
    ConnectScrollBar(vertical, &PictureView::y);
}

void CPicture_Control::ConnectScrollBar(QScrollBar* scrollBar, PictureAxis PictureView::*axis)
{
    UpdateScrollBar(scrollBar, m_view.*axis);
    connect(scrollBar, &QScrollBar::actionTriggered, this,
        [this, scrollBar, axis](int action) { OnScrollAction(scrollBar, axis, action); });
}

void CPicture_Control::UpdateScrollBar(QScrollBar* scrollBar, const PictureAxis& axis)
{
    // A bar's largest value is that of its beginning: the range less the page.
    const auto page = static_cast<int>(axis.ScrollPage(m_view.zoom));
    const int largest = static_cast<int>(PictureAxis::kScrollRange) - page;
    const QSignalBlocker quiet(scrollBar);
    scrollBar->setRange(0, largest);
    scrollBar->setPageStep(std::max(page, 1));
    scrollBar->setSingleStep(std::max(page / 10, 1));
    scrollBar->setValue(static_cast<int>(axis.ScrollPosition(m_view.zoom)));
    scrollBar->setEnabled(largest > 0);
}

void CPicture_Control::OnScrollAction(
    QScrollBar* scrollBar, PictureAxis PictureView::*axis, int action)
{
    const PictureAxis& present = m_view.*axis;
    const std::optional<PictureStep> step = StepOfAction(action);
    // Steps are exact; a bar's own 10,000 positions are not, in a picture of more pixels.
    const std::int64_t pixels = step ? present.StepOf(*step, m_view.zoom)
                                     : present.StepTo(scrollBar->sliderPosition(), m_view.zoom);
    if (pixels != 0)
        SetView(Moved(m_view, axis, pixels));
}

void CPicture_Control::ZoomAbout(QPoint viewPoint, bool in)
{
    SetView(m_view.ZoomedAt(viewPoint.x(), viewPoint.y(), m_view.NextZoom(in)));
}

void CPicture_Control::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::RightButton)
        OnRightClick(ViewPoint(event->position()));
    else if (event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton)
        m_press = Press{event->button(), event->position(), m_view};
}

void CPicture_Control::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void CPicture_Control::mouseMoveEvent(QMouseEvent* event)
{
    if (m_press)
        Drag(event->position());
    MovePointer(event->position());
}

void CPicture_Control::Drag(QPointF to)
{
    const QPointF way = to - m_press->at;
    if (!m_press->isDrag && way.manhattanLength() < QApplication::startDragDistance())
        return;
    m_press->isDrag = true;
    setCursor(Qt::ClosedHandCursor);
    // From where the drag began, so that no fraction of a pixel gets lost on the way.
    const double pixels = devicePixelRatioF() / m_press->view.zoom;
    SetView(m_press->view.MovedBy(std::lround(-way.x() * pixels), std::lround(-way.y() * pixels)));
}

void CPicture_Control::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_press || event->button() != m_press->button)
        return;
    const Press press = *m_press;
    m_press.reset();
    unsetCursor();
    if (!press.isDrag && press.button == Qt::LeftButton)
        OnLeftClick(ViewPoint(press.at));
}

void CPicture_Control::wheelEvent(QWheelEvent* event)
{
    const QPoint turned = event->angleDelta();
    const bool isSideways =
        std::abs(turned.x()) > std::abs(turned.y()) || event->modifiers() & Qt::ShiftModifier;
    if (isSideways) {
        const int way = turned.x() != 0 ? turned.x() : turned.y();
        const std::int64_t line = m_view.x.StepOf(PictureStep::LineForward, m_view.zoom);
        SetView(m_view.MovedBy(-way * line / kWheelStep, 0));
    } else {
        m_wheelRest += turned.y();
        const int steps = m_wheelRest / kWheelStep;
        m_wheelRest -= steps * kWheelStep;
        for (int step = 0; step < std::abs(steps); ++step)
            ZoomAbout(ViewPoint(event->position()), steps > 0);
    }
    MovePointer(event->position());
    event->accept();
}

void CPicture_Control::leaveEvent(QEvent*)
{
    MovePointer(std::nullopt);
}

void CPicture_Control::keyPressEvent(QKeyEvent* event)
{
    struct Key {
        int key;
        PictureAxis PictureView::*axis;
        PictureStep step;
    };
    static constexpr Key kKeys[] = {
        {Qt::Key_Left, &PictureView::x, PictureStep::LineBack},
        {Qt::Key_Right, &PictureView::x, PictureStep::LineForward},
        {Qt::Key_Up, &PictureView::y, PictureStep::LineBack},
        {Qt::Key_Down, &PictureView::y, PictureStep::LineForward},
        {Qt::Key_PageUp, &PictureView::y, PictureStep::PageBack},
        {Qt::Key_PageDown, &PictureView::y, PictureStep::PageForward},
    };
    for (const Key& row : kKeys) {
        if (row.key == event->key())
            return SetView(
                Moved(m_view, row.axis, (m_view.*row.axis).StepOf(row.step, m_view.zoom)));
    }
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return ZoomIn();
    case Qt::Key_Minus:
        return ZoomOut();
    case Qt::Key_Home:
        return SetView(m_view.MovedBy(-m_view.x.centre, -m_view.y.centre));
    case Qt::Key_End:
        return SetView(m_view.MovedBy(m_view.x.picture, m_view.y.picture));
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace vireo
