#include "viewers/controls/CPicture_Control.h"

#include "viewers/controls/PictureImage.h"

#include <QKeyEvent>
#include <QPainter>

#include <utility>

namespace vireo {

namespace {

constexpr int kBuildTimerMilliseconds = 100;
/// A view that has not changed for so long is worth the best drawing.
constexpr int kRestMilliseconds = 120;

} // namespace

CPicture_Control::CPicture_Control(QWidget* parent) : QWidget(parent), m_navigation(*this)
{
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(160, 100);
    m_restTimer.setSingleShot(true);
    using Navigation = PictureNavigation;
    connect(&m_navigation, &Navigation::ViewChanged, this, [this] {
        Redraw();
        emit ViewChanged();
    });
    connect(&m_navigation, &Navigation::PointerMoved, this, &CPicture_Control::PointerMoved);
    connect(&m_navigation, &Navigation::LeftClicked, this,
        [this](QPointF point) { OnLeftClick(m_navigation.ViewPoint(point)); });
    connect(&m_navigation, &Navigation::RightClicked, this,
        [this](QPointF point) { OnRightClick(m_navigation.ViewPoint(point)); });
    connect(&m_buildTimer, &QTimer::timeout, this, &CPicture_Control::OnBuildTimer);
    connect(&m_restTimer, &QTimer::timeout, this, &CPicture_Control::OnRest);
}

void CPicture_Control::SetPicture(std::shared_ptr<const PictureRows> rows)
{
    m_buildTimer.stop();
    m_builder.Stop();
    m_navigation.ForgetPress();
    m_rows = std::move(rows);
    m_bStartBuild = m_rows != nullptr;
    const QSize size = ViewSize();
    m_navigation.SetStart(PictureView::Start(
        m_rows ? m_rows->Width() : 0, m_rows ? m_rows->Height() : 0, size.width(), size.height()));
}

void CPicture_Control::Redraw()
{
    m_bDrawn = false;
    m_bDrawExact = false;
    update();
}

QSize CPicture_Control::ViewSize() const
{
    return (QSizeF(size()) * devicePixelRatioF()).toSize();
}

void CPicture_Control::OnLeftClick(QPoint viewPoint)
{
    SetView(View().ZoomedIn(viewPoint.x(), viewPoint.y()));
}

void CPicture_Control::OnRightClick(QPoint)
{
    SetView(View().ZoomedOut());
}

void CPicture_Control::DrawOver(QPainter&) { }

void CPicture_Control::DrawKept()
{
    // The memory is kept: it costs as much as drawing into it to get it anew.
    if (m_picture.size() != ViewSize())
        m_picture = QImage(ViewSize(), QImage::Format_RGB32);
    m_picture.setDevicePixelRatio(devicePixelRatioF());
    const bool isExact = DrawPicture(
        Content(), View(), m_picture, m_bDrawExact ? PictureQuality::Exact : PictureQuality::Fast);
    m_bDrawn = true;
    if (!isExact && !m_bDrawExact && !m_builder.IsBuilding())
        m_restTimer.start(kRestMilliseconds);
}

void CPicture_Control::paintEvent(QPaintEvent*)
{
    // The window may have come to a screen of another pixel ratio.
    if (ViewSize() != QSize(static_cast<int>(View().x.view), static_cast<int>(View().y.view)))
        FitViewToControl();
    if (!m_bDrawn)
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
    if (View().zoom < 1.0)
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
    const PictureView resized = View().Resized(size.width(), size.height());
    // Until somebody moves it, the view is that of the start at any size.
    if (m_navigation.IsAtStart())
        m_navigation.SetStart(resized.OneToOne());
    else
        SetView(resized);
}

void CPicture_Control::keyPressEvent(QKeyEvent* event)
{
    if (!m_navigation.Key(*event))
        QWidget::keyPressEvent(event);
}

} // namespace vireo
