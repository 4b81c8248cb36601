#include "viewers/picture/CPictureView_Control.h"

#include "viewers/controls/StraightLine.h"
#include "viewers/picture/PictureData.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace vireo {

namespace {

constexpr int kSettledMilliseconds = 120;
constexpr double kArrowShare = 0.1; ///< Of what is in view.

} // namespace

CPictureView_Control::CPictureView_Control(QWidget* parent) : CBasicTestControl(parent)
{
    setMinimumSize(160, 120);
    setCursor(Qt::CrossCursor);
    m_settled.setSingleShot(true);
    m_settled.setInterval(kSettledMilliseconds);
    connect(&m_settled, &QTimer::timeout, this, &CPictureView_Control::RedrawExactly);
}

void CPictureView_Control::SetPicture(const PictureData* picture)
{
    m_picture = picture;
    m_middle.reset();
    m_boundaries.clear();
    m_view = {};
    if (picture && picture->Holding() != PictureHolding::Nowhere) {
        m_view.x.picture = picture->Page().width;
        m_view.y.picture = picture->Page().height;
        if (picture->Cameras())
            m_boundaries = CameraBoundaries(*picture->Cameras(), m_view.x.picture);
    }
    Fit();
}

void CPictureView_Control::PictureGrew()
{
    Redraw();
    TellPixel();
}

void CPictureView_Control::SetMarks(std::vector<PictureMark> marks)
{
    m_marks = std::move(marks);
    Redraw();
}

void CPictureView_Control::ShowMarks(bool show)
{
    m_showMarks = show;
    Redraw();
}

void CPictureView_Control::ShowBoundaries(bool show)
{
    m_showBoundaries = show;
    Redraw();
}

void CPictureView_Control::SetScrollBars(QScrollBar* horizontal, QScrollBar* vertical)
{
    m_horizontal = horizontal;
    m_vertical = vertical;
    for (QScrollBar* const bar : {horizontal, vertical})
        connect(bar, &QScrollBar::valueChanged, this, [this] { Scroll(); });
    UpdateScrollBars();
}

// The view.

void CPictureView_Control::ResizeView()
{
    const double ratio = devicePixelRatioF();
    const auto width = static_cast<std::int64_t>(std::ceil(ClientWidth() * ratio));
    const auto height = static_cast<std::int64_t>(std::ceil(ClientHeight() * ratio));
    if (width < 1 || height < 1 || (width == m_view.x.view && height == m_view.y.view))
        return;
    const PictureView resized = m_view.Resized(width, height);
    m_view = m_isFitted ? resized.Fitted() : resized;
    UpdateScrollBars();
    emit ViewChanged();
}

void CPictureView_Control::ChangeView(const PictureView& view)
{
    m_view = view;
    ResizeView();
    UpdateScrollBars();
    emit ViewChanged();
    // Whatever moves a view is likely to move it again at once.
    m_isMoving = true;
    m_settled.start();
    Redraw();
    TellPixel();
}

void CPictureView_Control::RedrawExactly()
{
    if (std::exchange(m_isMoving, false))
        Redraw();
}

void CPictureView_Control::SetView(const PictureView& view)
{
    m_isFitted = false;
    ChangeView(view);
}

void CPictureView_Control::Fit()
{
    m_isFitted = true;
    ResizeView();
    ChangeView(m_view.Fitted());
}

void CPictureView_Control::ShowOneToOne()
{
    ZoomTo(Middle(), 1.0);
}

void CPictureView_Control::ZoomTo(QPoint point, double zoom)
{
    const PlacedPicture before = PlacePicture(m_view);
    const QPoint at = ViewPoint(point);
    const PictureView zoomed = m_view.ZoomedAt(at.x(), at.y(), zoom);
    // The pixel stays under the pointer even when the picture no longer lies in the middle.
    const PlacedPicture after = PlacePicture(zoomed);
    const auto pixels = [zoom](std::int64_t viewPixels) {
        return std::llround(static_cast<double>(viewPixels) / zoom);
    };
    SetView(zoomed.MovedBy(pixels(after.left - before.left), pixels(after.top - before.top)));
}

void CPictureView_Control::ZoomAt(QPoint point, bool in)
{
    ZoomTo(point, m_view.NextZoom(in));
}

void CPictureView_Control::ZoomIn()
{
    ZoomAt(Middle(), true);
}

void CPictureView_Control::ZoomOut()
{
    ZoomAt(Middle(), false);
}

void CPictureView_Control::PointAt(const PictureMark& pixel)
{
    m_middle = pixel;
    PictureView view = m_view;
    view.zoom = 1.0;
    view.x.centre = pixel.column;
    view.y.centre = pixel.line;
    SetView(view.MovedBy(0, 0));
}

void CPictureView_Control::MoveBy(double sharesX, double sharesY)
{
    const auto pixels = [this](double shares, const PictureAxis& axis) {
        return std::llround(shares * static_cast<double>(axis.Shown(m_view.zoom)));
    };
    SetView(m_view.MovedBy(pixels(sharesX, m_view.x), pixels(sharesY, m_view.y)));
}

namespace {

/// Picture pixels to one step of a scroll bar, whose numbers have 31 bits.
std::int64_t ScrollUnit(const PictureAxis& axis)
{
    constexpr std::int64_t kMostSteps = std::int64_t{1} << 30;
    return axis.picture / kMostSteps + 1;
}

void SetScrollBar(QScrollBar* bar, const PictureAxis& axis, double zoom)
{
    if (!bar)
        return;
    const std::int64_t unit = ScrollUnit(axis);
    const std::int64_t page = axis.Shown(zoom);
    const std::int64_t hidden = std::max<std::int64_t>(axis.picture - page, 0);
    const QSignalBlocker quiet(bar);
    bar->setRange(0, static_cast<int>(hidden / unit));
    bar->setPageStep(std::max(static_cast<int>(page / unit), 1));
    bar->setSingleStep(std::max(static_cast<int>(page / unit / 10), 1));
    bar->setValue(static_cast<int>(axis.First(zoom) / unit));
    bar->setEnabled(hidden > 0);
}

/// Picture pixels from where an axis is to where its scroll bar stands.
std::int64_t ScrollDistance(const QScrollBar* bar, const PictureAxis& axis, double zoom)
{
    if (!bar || axis.First(zoom) / ScrollUnit(axis) == bar->value())
        return 0;
    return bar->value() * ScrollUnit(axis) - axis.First(zoom);
}

} // namespace

void CPictureView_Control::UpdateScrollBars()
{
    SetScrollBar(m_horizontal, m_view.x, m_view.zoom);
    SetScrollBar(m_vertical, m_view.y, m_view.zoom);
}

void CPictureView_Control::Scroll()
{
    SetView(m_view.MovedBy(ScrollDistance(m_horizontal, m_view.x, m_view.zoom),
        ScrollDistance(m_vertical, m_view.y, m_view.zoom)));
}

// What is under the pointer.

QPoint CPictureView_Control::ViewPoint(QPoint point) const
{
    const PlacedPicture placed = PlacePicture(m_view);
    return (QPointF(point) * devicePixelRatioF()).toPoint()
        - QPoint(static_cast<int>(placed.left), static_cast<int>(placed.top));
}

std::optional<PictureMark> CPictureView_Control::PixelAt(QPoint point) const
{
    const QPoint at = ViewPoint(point);
    const PictureMark pixel{m_view.PixelAtX(at.x()), m_view.PixelAtY(at.y())};
    const bool isInside = rect().contains(point) && pixel.column >= 0
        && pixel.column < m_view.x.picture && pixel.line >= 0 && pixel.line < m_view.y.picture;
    return isInside ? std::optional(pixel) : std::nullopt;
}

void CPictureView_Control::TellPixel()
{
    emit PixelPointedAt(m_pointer ? PixelAt(*m_pointer) : std::nullopt);
}

// Drawing.

PicturePlotContent CPictureView_Control::Content() const
{
    PicturePlotContent content;
    content.view = m_view;
    content.unit = devicePixelRatioF();
    if (m_picture) {
        content.picture = m_picture->Content();
        content.coveredRows = m_picture->CoveredRows();
    }
    if (m_showBoundaries)
        content.boundaries = m_boundaries;
    if (m_showMarks) {
        content.marks = m_marks;
        content.middle = m_middle;
    }
    return content;
}

bool CPictureView_Control::DrawContent(QPainter& dc, int width, int height)
{
    const double scale = IsRaster(dc) ? DeviceScale(dc) : 1.0;
    PicturePlotContent content = Content();
    content.unit = scale;
    content.view = m_view.Resized(static_cast<std::int64_t>(std::ceil(width * scale)),
        static_cast<std::int64_t>(std::ceil(height * scale)));
    dc.save();
    // Pixels of the view are those of the device, even where these are no whole units.
    dc.scale(1.0 / scale, 1.0 / scale);
    const QRectF target(0.0, 0.0, static_cast<double>(content.view.x.view),
        static_cast<double>(content.view.y.view));
    const bool isExact = DrawPicturePlot(
        dc, target, content, m_canvas, m_isMoving ? PictureQuality::Fast : PictureQuality::Exact);
    dc.restore();
    // What is as good as it gets need not be drawn once more.
    m_isMoving = m_isMoving && !isExact;
    return true;
}

void CPictureView_Control::PrintPage(QPainter& dc, QSizeF printable, int)
{
    DrawPicturePage(dc, QRectF(QPointF(), printable), HeaderLines(), Content());
}

void CPictureView_Control::OnSize(unsigned sizeType, int width, int height)
{
    CBasicTestControl::OnSize(sizeType, width, height);
    ResizeView();
}

void CPictureView_Control::OnResized()
{
    const PictureView before = m_view;
    ResizeView();
    if (before.zoom != m_view.zoom || before.x.view != m_view.x.view
        || before.y.view != m_view.y.view)
        Redraw();
}

// Mouse and keys.

void CPictureView_Control::OnLButtonDown(unsigned, QPoint point)
{
    m_drag = Drag{point, m_view};
}

void CPictureView_Control::OnLButtonUp(unsigned, QPoint point)
{
    const std::optional<Drag> drag = std::exchange(m_drag, std::nullopt);
    setCursor(Qt::CrossCursor);
    if (drag && !drag->hasMoved)
        ZoomAt(point, true);
}

void CPictureView_Control::OnRButtonDown(unsigned, QPoint point)
{
    ZoomAt(point, false);
}

void CPictureView_Control::DragTo(QPoint point)
{
    const QPoint way = m_drag->from - point;
    if (!m_drag->hasMoved && way.manhattanLength() < QApplication::startDragDistance())
        return;
    if (!std::exchange(m_drag->hasMoved, true))
        setCursor(Qt::ClosedHandCursor);
    const double pixels = devicePixelRatioF() / m_view.zoom;
    SetView(m_drag->view.MovedBy(std::llround(way.x() * pixels), std::llround(way.y() * pixels)));
}

void CPictureView_Control::OnMouseMove(unsigned, QPoint point)
{
    m_pointer = point;
    if (m_drag)
        DragTo(point);
    TellPixel();
}

void CPictureView_Control::OnMouseLeave(unsigned, QPoint)
{
    m_pointer.reset();
    TellPixel();
}

void CPictureView_Control::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton)
        m_drag = Drag{event->pos(), m_view};
    else
        CBasicTestControl::mousePressEvent(event);
}

void CPictureView_Control::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton) {
        m_drag.reset();
        setCursor(Qt::CrossCursor);
    } else {
        CBasicTestControl::mouseReleaseEvent(event);
    }
}

void CPictureView_Control::wheelEvent(QWheelEvent* event)
{
    constexpr int kStep = 120; // Eighths of a degree.
    const QPoint turned = event->angleDelta();
    if (std::abs(turned.x()) > std::abs(turned.y())) {
        MoveBy(-turned.x() * kArrowShare / kStep, 0.0);
    } else {
        m_wheelRest += turned.y();
        const int steps = m_wheelRest / kStep;
        m_wheelRest -= steps * kStep;
        for (int step = 0; step < std::abs(steps); ++step)
            ZoomAt(event->position().toPoint(), steps > 0);
    }
    event->accept();
}

void CPictureView_Control::keyPressEvent(QKeyEvent* event)
{
    constexpr double kAll = 1e9; // Views end at the picture's edges.
    struct KeyMove {
        int key;
        double x;
        double y;
    };
    constexpr KeyMove kMoves[] = {{Qt::Key_Left, -kArrowShare, 0.0},
        {Qt::Key_Right, kArrowShare, 0.0}, {Qt::Key_Up, 0.0, -kArrowShare},
        {Qt::Key_Down, 0.0, kArrowShare}, {Qt::Key_PageUp, 0.0, -1.0}, {Qt::Key_PageDown, 0.0, 1.0},
        {Qt::Key_Home, -kAll, -kAll}, {Qt::Key_End, kAll, kAll}};
    for (const KeyMove& move : kMoves) {
        if (move.key == event->key())
            return MoveBy(move.x, move.y);
    }
    if (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal)
        ZoomIn();
    else if (event->key() == Qt::Key_Minus)
        ZoomOut();
    else
        CBasicTestControl::keyPressEvent(event);
}

} // namespace vireo
