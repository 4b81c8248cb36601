#include "viewers/noise/CNoiseTestControl.h"

#include "viewers/controls/PrintCommand.h"
#include "viewers/noise/NoiseData.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPrinter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace vireo {

namespace {

constexpr int kWheelStep = 120; ///< Eighths of a degree.

} // namespace

CNoiseTestControl::CNoiseTestControl(QWidget* parent) : QWidget(parent)
{
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(160, 100);
}

void CNoiseTestControl::SetScrollBar(QScrollBar* scrollBar)
{
    m_scrollBar = scrollBar;
    connect(scrollBar, &QScrollBar::valueChanged, this, &CNoiseTestControl::OnScrolled);
    UpdateScrollBar();
}

void CNoiseTestControl::SetData(const NoiseData* record)
{
    m_content.data = record;
    ZoomAll();
}

void CNoiseTestControl::SetUnit(NoiseUnit unit)
{
    m_content.unit = unit;
    Redraw();
}

std::int64_t CNoiseTestControl::LineLength() const
{
    return m_content.data ? m_content.data->m_iLineLength : 0;
}

void CNoiseTestControl::SetView(const NoiseView& view)
{
    m_view = view;
    m_content.view = view.Stretch(LineLength());
    UpdateScrollBar();
    emit ViewChanged();
    Redraw();
}

void CNoiseTestControl::ZoomAll()
{
    SetView(NoiseView::Whole(LineLength()));
}

void CNoiseTestControl::ZoomIn()
{
    SetView(m_view.ZoomedAt(static_cast<double>(m_view.centre), true, LineLength()));
}

void CNoiseTestControl::ZoomOut()
{
    SetView(m_view.ZoomedOut(LineLength()));
}

void CNoiseTestControl::UpdateScrollBar()
{
    if (!m_scrollBar)
        return;
    const auto page = static_cast<int>(m_view.Page(LineLength()));
    const int hidden = std::max(static_cast<int>(LineLength()) - page, 0);
    const QSignalBlocker quiet(m_scrollBar);
    m_scrollBar->setRange(0, hidden);
    m_scrollBar->setPageStep(page);
    m_scrollBar->setSingleStep(std::max(page / 10, 1));
    m_scrollBar->setValue(static_cast<int>(m_view.ScrollPosition(LineLength())));
    m_scrollBar->setEnabled(hidden > 0);
}

void CNoiseTestControl::OnScrolled(int position)
{
    SetView(m_view.ScrolledTo(position, LineLength()));
}

std::optional<std::int64_t> CNoiseTestControl::PixelAt(QPoint point) const
{
    const ProfileScale scale = Scale();
    if (!scale.Contains(point.x(), point.y()))
        return std::nullopt;
    const auto pixel = static_cast<std::int64_t>(std::floor(scale.PixelAt(point.x())));
    return pixel >= 0 && pixel < LineLength() ? std::optional(pixel) : std::nullopt;
}

void CNoiseTestControl::Redraw()
{
    m_picture = QImage();
    // Another pixel may lie under a resting pointer now.
    if (m_cursorPoint)
        MoveCursor(m_cursorPoint);
    update();
}

void CNoiseTestControl::MoveCursor(std::optional<QPoint> point)
{
    m_cursorPoint = point;
    m_cursor = point ? PixelAt(*point) : std::nullopt;
    update();
    emit CursorMoved(m_cursor);
}

void CNoiseTestControl::paintEvent(QPaintEvent*)
{
    const qreal ratio = devicePixelRatioF();
    const QSize deviceSize = (QSizeF(size()) * ratio).toSize();
    if (m_picture.size() != deviceSize) {
        m_picture = QImage(deviceSize, QImage::Format_RGB32);
        m_picture.setDevicePixelRatio(ratio);
        QPainter painter(&m_picture);
        DrawNoisePlot(painter, size(), m_content);
    }
    QPainter painter(this);
    painter.drawImage(QPoint(0, 0), m_picture);
    if (m_cursor)
        DrawNoiseCursor(painter, size(), m_content, *m_cursor);
}

void CNoiseTestControl::resizeEvent(QResizeEvent*)
{
    Redraw();
}

void CNoiseTestControl::mousePressEvent(QMouseEvent* event)
{
    const bool pans = event->button() == Qt::MiddleButton
        || (event->button() == Qt::LeftButton && event->modifiers() & Qt::ShiftModifier);
    if (pans) {
        m_dragFrom = event->pos();
        setCursor(Qt::ClosedHandCursor);
    } else if (event->button() == Qt::LeftButton) {
        const ProfileScale scale = Scale();
        const double x = std::clamp(event->pos().x() - scale.left, 0.0, scale.width);
        SetView(m_view.ZoomedIn(x, scale.width, LineLength()));
    } else if (event->button() == Qt::RightButton) {
        ZoomOut();
    }
}

void CNoiseTestControl::mouseReleaseEvent(QMouseEvent*)
{
    m_dragFrom.reset();
    unsetCursor();
}

void CNoiseTestControl::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void CNoiseTestControl::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragFrom) {
        const ProfileScale scale = Scale();
        const double pixels = scale.PixelAt(m_dragFrom->x()) - scale.PixelAt(event->pos().x());
        SetView(m_view.MovedBy(std::lround(pixels), LineLength()));
        m_dragFrom = event->pos();
    }
    MoveCursor(event->pos());
}

void CNoiseTestControl::wheelEvent(QWheelEvent* event)
{
    const QPoint turned = event->angleDelta();
    if (std::abs(turned.x()) > std::abs(turned.y())) {
        const double tenths = -static_cast<double>(turned.x()) / kWheelStep;
        const auto page = static_cast<double>(m_view.Page(LineLength()));
        SetView(m_view.MovedBy(std::lround(tenths * page / 10.0), LineLength()));
    } else {
        m_wheelRest += turned.y();
        const int steps = m_wheelRest / kWheelStep;
        m_wheelRest -= steps * kWheelStep;
        Turn(event->position().toPoint(), steps);
    }
    MoveCursor(event->position().toPoint());
    event->accept();
}

void CNoiseTestControl::Turn(QPoint point, int steps)
{
    for (int step = 0; step < std::abs(steps); ++step) {
        const double pixel =
            std::clamp(Scale().PixelAt(point.x()), m_content.view.first, m_content.view.End());
        SetView(m_view.ZoomedAt(pixel, steps > 0, LineLength()));
    }
}

void CNoiseTestControl::leaveEvent(QEvent*)
{
    MoveCursor(std::nullopt);
}

QSize CNoiseTestControl::sizeHint() const
{
    return {800, 360};
}

bool CNoiseTestControl::PrintOn(
    QPrinter& printer, const std::vector<std::string>& header, const char* documentName) const
{
    return PrintOnePage(printer, documentName, [&](QPainter& painter, const QRectF& page) {
        DrawNoisePage(painter, page, header, size(), m_content);
    });
}

void CNoiseTestControl::Print(const std::vector<std::string>& header, const char* documentName)
{
    QPrinter printer(QPrinter::HighResolution);
    if (AskForPrinter(printer, this) && !PrintOn(printer, header, documentName))
        ShowPrintFailure();
}

void CNoiseTestControl::PrintPreview(
    const std::vector<std::string>& header, const char* documentName)
{
    QPrinter printer(QPrinter::HighResolution);
    ShowPrintPreview(
        printer, this, [&](QPrinter& target) { PrintOn(target, header, documentName); });
}

} // namespace vireo
