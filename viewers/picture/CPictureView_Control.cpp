#include "viewers/picture/CPictureView_Control.h"

#include "viewers/controls/StraightLine.h"
#include "viewers/picture/PictureData.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <cmath>
#include <utility>

namespace vireo {

namespace {

/// A view that has not changed for so long is worth the best drawing.
constexpr int kRestMilliseconds = 120;

} // namespace

CPictureView_Control::CPictureView_Control(QWidget* parent)
    : CBasicTestControl(parent),
      m_navigation(*this, PictureNavigation::Smaller::InMiddle)
{
    setMinimumSize(160, 120);
    m_restTimer.setSingleShot(true);
    m_restTimer.setInterval(kRestMilliseconds);
    using Navigation = PictureNavigation;
    connect(&m_restTimer, &QTimer::timeout, this, &CPictureView_Control::RedrawExactly);
    connect(&m_navigation, &Navigation::ViewChanged, this, &CPictureView_Control::OnViewChanged);
    connect(&m_navigation, &Navigation::LeftClicked, this,
        [this](QPointF point) { m_navigation.ZoomAt(point, true); });
    connect(&m_navigation, &Navigation::RightClicked, this,
        [this](QPointF point) { m_navigation.ZoomAt(point, false); });
}

void CPictureView_Control::SetPicture(const PictureData* picture)
{
    m_picture = picture;
    m_middle.reset();
    m_boundaries.clear();
    m_navigation.ForgetPress();
    if (!picture) {
        Redraw();
        return;
    }
    PictureView view = View();
    const bool hasPixels = picture->Holding() != PictureHolding::Nowhere;
    const std::int64_t width = hasPixels ? picture->Page().width : 0;
    const std::int64_t height = hasPixels ? picture->Page().height : 0;
    const bool isOther = width != view.x.picture || height != view.y.picture;
    view.x.picture = width;
    view.y.picture = height;
    if (picture->Cameras())
        m_boundaries = CameraBoundaries(*picture->Cameras(), width);
    if (isOther || m_navigation.IsAtStart())
        m_navigation.SetStart(view.Fitted());
    else
        m_navigation.SetView(view);
}

void CPictureView_Control::PictureGrew()
{
    Redraw();
    m_navigation.TellPointer();
}

void CPictureView_Control::SetMarks(std::vector<PictureMark> marks)
{
    m_marks = std::move(marks);
    Redraw();
}

void CPictureView_Control::ShowMarks(bool show)
{
    m_bShowMarks = show;
    Redraw();
}

void CPictureView_Control::ShowBoundaries(bool show)
{
    m_bShowBoundaries = show;
    Redraw();
}

// The view.

void CPictureView_Control::Fit()
{
    m_navigation.SetStart(View().Fitted());
}

void CPictureView_Control::ShowOneToOne()
{
    m_navigation.ZoomTo(m_navigation.Middle(), 1.0);
}

void CPictureView_Control::PointAt(const PictureMark& pixel)
{
    m_middle = pixel;
    PictureView view = View();
    view.zoom = 1.0;
    view.x.centre = pixel.column;
    view.y.centre = pixel.line;
    m_navigation.SetView(view.MovedBy(0, 0));
}

void CPictureView_Control::FitViewToControl()
{
    const double ratio = devicePixelRatioF();
    const auto width = static_cast<std::int64_t>(std::ceil(ClientWidth() * ratio));
    const auto height = static_cast<std::int64_t>(std::ceil(ClientHeight() * ratio));
    if (width < 1 || height < 1 || (width == View().x.view && height == View().y.view))
        return;
    const PictureView resized = View().Resized(width, height);
    // Until somebody moves it, the whole picture is in view at any size.
    if (m_navigation.IsAtStart())
        m_navigation.SetStart(resized.Fitted());
    else
        m_navigation.SetView(resized);
}

void CPictureView_Control::OnViewChanged()
{
    // Whatever moves a view is likely to move it again at once.
    m_bMoving = true;
    m_restTimer.start();
    Redraw();
}

void CPictureView_Control::RedrawExactly()
{
    if (std::exchange(m_bMoving, false))
        Redraw();
}

void CPictureView_Control::OnSize(unsigned sizeType, int width, int height)
{
    CBasicTestControl::OnSize(sizeType, width, height);
    FitViewToControl();
}

// Drawing.

PicturePlotContent CPictureView_Control::Content() const
{
    PicturePlotContent content;
    content.view = View();
    content.unit = devicePixelRatioF();
    if (m_picture) {
        content.picture = m_picture->Content();
        content.coveredRows = m_picture->CoveredRows();
        content.missingRows = m_picture->MissingRows();
    }
    if (m_bShowBoundaries)
        content.boundaries = m_boundaries;
    if (m_bShowMarks) {
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
    content.view = View().Resized(static_cast<std::int64_t>(std::ceil(width * scale)),
        static_cast<std::int64_t>(std::ceil(height * scale)));
    dc.save();
    // Pixels of the view are those of the device, even where these are no whole units.
    dc.scale(1.0 / scale, 1.0 / scale);
    const QRectF target(0.0, 0.0, static_cast<double>(content.view.x.view),
        static_cast<double>(content.view.y.view));
    const bool isExact = DrawPicturePlot(
        dc, target, content, m_canvas, m_bMoving ? PictureQuality::Fast : PictureQuality::Exact);
    dc.restore();
    // What is as good as it gets need not be drawn once more.
    m_bMoving = m_bMoving && !isExact;
    return true;
}

void CPictureView_Control::PrintPage(QPainter& dc, QSizeF printable, int)
{
    DrawPicturePage(dc, QRectF(QPointF(), printable), HeaderLines(), Content());
}

// Mouse and keys go to the navigation, and after that the way of all controls.

void CPictureView_Control::mousePressEvent(QMouseEvent* event)
{
    m_navigation.Press(*event);
    CBasicTestControl::mousePressEvent(event);
}

void CPictureView_Control::mouseMoveEvent(QMouseEvent* event)
{
    m_navigation.Move(*event);
    CBasicTestControl::mouseMoveEvent(event);
}

void CPictureView_Control::mouseReleaseEvent(QMouseEvent* event)
{
    m_navigation.Release(*event);
    CBasicTestControl::mouseReleaseEvent(event);
}

void CPictureView_Control::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_navigation.Press(*event);
    CBasicTestControl::mouseDoubleClickEvent(event);
}

void CPictureView_Control::OnMouseLeave(unsigned, QPoint)
{
    m_navigation.Leave();
}

void CPictureView_Control::wheelEvent(QWheelEvent* event)
{
    m_navigation.Wheel(*event);
}

void CPictureView_Control::keyPressEvent(QKeyEvent* event)
{
    if (!m_navigation.Key(*event))
        CBasicTestControl::keyPressEvent(event);
}

} // namespace vireo
