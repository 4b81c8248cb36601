#include "viewers/controls/CPicture_Control.h"

#include "viewers/controls/PictureImage.h"

#include <QPainter>

#include <cmath>
#include <utility>

namespace vireo {

namespace {

constexpr int kBuildTimerMilliseconds = 100;
/// A view that has not changed for so long is worth the best drawing.
constexpr int kRestMilliseconds = 120;

} // namespace

CPicture_Control::CPicture_Control(QWidget* parent) : QWidget(parent)
{
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(160, 100);
    m_restTimer.setSingleShot(true);
    connect(&m_buildTimer, &QTimer::timeout, this, &CPicture_Control::OnBuildTimer);
    connect(&m_restTimer, &QTimer::timeout, this, &CPicture_Control::OnRest);
}

void CPicture_Control::SetPicture(std::shared_ptr<const PictureRows> rows)
{
    m_buildTimer.stop();
    m_builder.Stop();
    m_press.reset();
    m_rows = std::move(rows);
    m_bStartBuild = m_rows != nullptr;
    m_bAtStart = true;
    const QSize size = ViewSize();
    ShowView(PictureView::Start(m_rows ? m_rows->Width() : 0, m_rows ? m_rows->Height() : 0,
        size.width(), size.height()));
}

void CPicture_Control::SetView(const PictureView& view)
{
    m_bAtStart = false;
    ShowView(view);
}

void CPicture_Control::ShowView(const PictureView& view)
{
    m_view = view;
    if (m_horizontal)
        UpdateScrollBar(m_horizontal, m_view.x);
    if (m_vertical)
        UpdateScrollBar(m_vertical, m_view.y);
    Redraw();
    emit ViewChanged();
}

void CPicture_Control::Redraw()
{
    m_picture = QImage();
    m_bDrawExact = false;
    // Another pixel may lie under a resting pointer now.
    if (m_pointer)
        MovePointer(m_pointer);
    update();
}

QSize CPicture_Control::ViewSize() const
{
    return (QSizeF(size()) * devicePixelRatioF()).toSize();
}

QPoint CPicture_Control::ViewPoint(QPointF point) const
{
    const QPointF device = point * devicePixelRatioF();
    return {static_cast<int>(std::floor(device.x())), static_cast<int>(std::floor(device.y()))};
}

QPoint CPicture_Control::MiddleOfView() const
{
    return {static_cast<int>(m_view.x.view / 2), static_cast<int>(m_view.y.view / 2)};
}

std::optional<CPicture_Control::Pixel> CPicture_Control::PixelAt(QPointF point) const
{
    const QPoint at = ViewPoint(point);
    const Pixel pixel{m_view.PixelAtX(at.x()), m_view.PixelAtY(at.y())};
    const bool isInside =
        pixel.x >= 0 && pixel.x < m_view.x.picture && pixel.y >= 0 && pixel.y < m_view.y.picture;
    return isInside ? std::optional(pixel) : std::nullopt;
}

QPointF CPicture_Control::PointOf(const Pixel& pixel) const
{
    const auto place = [this](const PictureAxis& axis, std::int64_t at) {
        const double drawn = (static_cast<double>(at) + 0.5) * m_view.zoom;
        const double first =
            static_cast<double>(m_view.FirstDrawn(axis)) * (m_view.zoom >= 1.0 ? m_view.zoom : 1.0);
        return (drawn - first) / devicePixelRatioF();
    };
    return {place(m_view.x, pixel.x), place(m_view.y, pixel.y)};
}

void CPicture_Control::MovePointer(std::optional<QPointF> point)
{
    m_pointer = point;
    emit PointerMoved(point ? PixelAt(*point) : std::nullopt);
}

void CPicture_Control::OnLeftClick(QPoint viewPoint)
{
    SetView(m_view.ZoomedIn(viewPoint.x(), viewPoint.y()));
}

void CPicture_Control::OnRightClick(QPoint)
{
    SetView(m_view.ZoomedOut());
}

void CPicture_Control::DrawOver(QPainter&) { }

void CPicture_Control::DrawKept()
{
    m_picture = QImage(ViewSize(), QImage::Format_RGB32);
    m_picture.setDevicePixelRatio(devicePixelRatioF());
    const bool isExact = DrawPicture(
        Content(), m_view, m_picture, m_bDrawExact ? PictureQuality::Exact : PictureQuality::Fast);
    if (!isExact && !m_bDrawExact && !m_builder.IsBuilding())
        m_restTimer.start(kRestMilliseconds);
}

void CPicture_Control::paintEvent(QPaintEvent*)
{
    // The window may have come to a screen of another pixel ratio.
    if (ViewSize() != QSize(static_cast<int>(m_view.x.view), static_cast<int>(m_view.y.view)))
        FitViewToControl();
    if (m_picture.isNull())
        DrawKept();
    QPainter painter(this);
    painter.drawImage(QPoint(0, 0), m_picture);
    DrawOver(painter);
    if (!std::exchange(m_bStartBuild, false))
        return;
    // Not before the first picture: it would have to share the processor.
    QTimer::singleShot(0, this, [this] {
        m_builder.Start(m_rows);
        m_buildTimer.start(kBuildTimerMilliseconds);
    });
}

void CPicture_Control::OnBuildTimer()
{
    if (!m_builder.IsBuilding())
        m_buildTimer.stop();
    if (m_view.zoom < 1.0)
        Redraw();
    emit BuildAdvanced();
}

void CPicture_Control::OnRest()
{
    Redraw();
    m_bDrawExact = true;
}

void CPicture_Control::resizeEvent(QResizeEvent*)
{
    FitViewToControl();
}

void CPicture_Control::FitViewToControl()
{
    const QSize size = ViewSize();
    const PictureView resized = m_view.Resized(size.width(), size.height());
    // Until somebody moves it, the view is that of the start at any size.
    ShowView(m_bAtStart ? resized.OneToOne() : resized);
}

} // namespace vireo
