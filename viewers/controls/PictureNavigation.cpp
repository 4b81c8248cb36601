#include "viewers/controls/PictureNavigation.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <QWidget>

#include <algorithm>
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

PictureNavigation::PictureNavigation(QWidget& control, Smaller smaller)
    : m_control(control),
      m_smaller(smaller)
{
}

void PictureNavigation::SetView(const PictureView& view)
{
    m_bAtStart = false;
    ShowView(view);
}

void PictureNavigation::SetStart(const PictureView& view)
{
    m_bAtStart = true;
    ShowView(view);
}

void PictureNavigation::ShowView(const PictureView& view)
{
    m_view = view;
    UpdateScrollBars();
    emit ViewChanged();
    TellPointer();
}

PlacedPicture PictureNavigation::Placed() const
{
    return m_smaller == Smaller::InMiddle ? m_view.Placed() : PlacedPicture{m_view};
}

// Points.

QPointF PictureNavigation::Middle() const
{
    return QPointF(m_control.width() / 2.0, m_control.height() / 2.0);
}

QPoint PictureNavigation::ViewPoint(QPointF point) const
{
    const PlacedPicture placed = Placed();
    const QPointF device = point * m_control.devicePixelRatioF();
    return {static_cast<int>(std::floor(device.x()) - static_cast<double>(placed.left)),
        static_cast<int>(std::floor(device.y()) - static_cast<double>(placed.top))};
}

std::optional<PicturePixel> PictureNavigation::PixelAt(QPointF point) const
{
    const QPoint at = ViewPoint(point);
    const PicturePixel pixel{m_view.PixelAtX(at.x()), m_view.PixelAtY(at.y())};
    const bool isInside =
        pixel.x >= 0 && pixel.x < m_view.x.picture && pixel.y >= 0 && pixel.y < m_view.y.picture;
    return isInside ? std::optional(pixel) : std::nullopt;
}

QPointF PictureNavigation::PointOf(const PicturePixel& pixel) const
{
    const PlacedPicture placed = Placed();
    const double half = m_view.zoom / 2.0;
    const QPointF device(placed.view.PlaceOfX(pixel.x) + half + static_cast<double>(placed.left),
        placed.view.PlaceOfY(pixel.y) + half + static_cast<double>(placed.top));
    return device / m_control.devicePixelRatioF();
}

void PictureNavigation::MovePointer(std::optional<QPointF> point)
{
    m_pointer = point;
    emit PointerMoved(point ? PixelAt(*point) : std::nullopt);
}

void PictureNavigation::TellPointer()
{
    if (m_pointer)
        MovePointer(m_pointer);
}

void PictureNavigation::ZoomTo(QPointF point, double zoom)
{
    const QPoint at = ViewPoint(point);
    const PlacedPicture before = Placed();
    const PictureView zoomed = m_view.ZoomedAt(at.x(), at.y(), zoom);
    if (m_smaller == Smaller::AtStart)
        return SetView(zoomed);
    // The pixel stays under the point even when the picture has come to lie in the middle.
    const PlacedPicture after = zoomed.Placed();
    SetView(
        zoomed.MovedBy(m_view.PixelAtX(at.x()) - zoomed.PixelAtX(at.x() + before.left - after.left),
            m_view.PixelAtY(at.y()) - zoomed.PixelAtY(at.y() + before.top - after.top)));
}

// Scroll bars.

void PictureNavigation::SetScrollBars(QScrollBar* horizontal, QScrollBar* vertical)
{
    m_horizontal = horizontal;
    m_vertical = vertical;
    ConnectScrollBar(horizontal, &PictureView::x);
    ConnectScrollBar(vertical, &PictureView::y);
    UpdateScrollBars();
}

void PictureNavigation::ConnectScrollBar(QScrollBar* scrollBar, PictureAxis PictureView::*axis)
{
    connect(scrollBar, &QScrollBar::actionTriggered, this,
        [this, scrollBar, axis](int action) { OnScrollAction(scrollBar, axis, action); });
}

void PictureNavigation::UpdateScrollBars()
{
    if (m_horizontal)
        UpdateScrollBar(m_horizontal, m_view.x);
    if (m_vertical)
        UpdateScrollBar(m_vertical, m_view.y);
}

void PictureNavigation::UpdateScrollBar(QScrollBar* scrollBar, const PictureAxis& axis)
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

void PictureNavigation::OnScrollAction(
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

// Mouse and keys.

void PictureNavigation::Press(const QMouseEvent& event)
{
    if (event.button() == Qt::RightButton)
        emit RightClicked(event.position());
    else if (event.button() == Qt::LeftButton || event.button() == Qt::MiddleButton)
        m_press = PressState{event.button(), event.position(), m_view};
}

void PictureNavigation::Move(const QMouseEvent& event)
{
    if (m_press)
        Drag(event.position());
    MovePointer(event.position());
}

void PictureNavigation::Drag(QPointF to)
{
    const QPointF way = to - m_press->at;
    if (!m_press->isDrag && way.manhattanLength() < QApplication::startDragDistance())
        return;
    m_press->isDrag = true;
    m_control.setCursor(Qt::ClosedHandCursor);
    // From where the drag began, so that no fraction of a pixel gets lost on the way.
    const double pixels = m_control.devicePixelRatioF() / m_press->view.zoom;
    SetView(m_press->view.MovedBy(std::lround(-way.x() * pixels), std::lround(-way.y() * pixels)));
}

void PictureNavigation::Release(const QMouseEvent& event)
{
    if (!m_press || event.button() != m_press->button)
        return;
    const PressState press = *m_press;
    m_press.reset();
    m_control.unsetCursor();
    if (!press.isDrag && press.button == Qt::LeftButton)
        emit LeftClicked(press.at);
}

void PictureNavigation::Wheel(QWheelEvent& event)
{
    const QPoint turned = event.angleDelta();
    const bool isSideways =
        std::abs(turned.x()) > std::abs(turned.y()) || event.modifiers() & Qt::ShiftModifier;
    if (isSideways) {
        const int way = turned.x() != 0 ? turned.x() : turned.y();
        const std::int64_t line = m_view.x.StepOf(PictureStep::LineForward, m_view.zoom);
        SetView(m_view.MovedBy(-way * line / kWheelStep, 0));
    } else {
        m_wheelRest += turned.y();
        const int steps = m_wheelRest / kWheelStep;
        m_wheelRest -= steps * kWheelStep;
        for (int step = 0; step < std::abs(steps); ++step)
            ZoomAt(event.position(), steps > 0);
    }
    MovePointer(event.position());
    event.accept();
}

void PictureNavigation::Leave()
{
    MovePointer(std::nullopt);
}

bool PictureNavigation::Key(const QKeyEvent& event)
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
        if (row.key != event.key())
            continue;
        SetView(Moved(m_view, row.axis, (m_view.*row.axis).StepOf(row.step, m_view.zoom)));
        return true;
    }
    switch (event.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        ZoomIn();
        return true;
    case Qt::Key_Minus:
        ZoomOut();
        return true;
    case Qt::Key_Home:
        SetView(m_view.MovedBy(-m_view.x.centre, -m_view.y.centre));
        return true;
    case Qt::Key_End:
        SetView(m_view.MovedBy(m_view.x.picture, m_view.y.picture));
        return true;
    default:
        return false;
    }
}

} // namespace vireo
