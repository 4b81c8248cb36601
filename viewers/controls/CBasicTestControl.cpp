#include "viewers/controls/CBasicTestControl.h"

#include "platform/Message.h"
#include "viewers/controls/Fonts.h"

#include <QEvent>
#include <QFontInfo>
#include <QFontMetrics>
#include <QMouseEvent>

#include <algorithm>
#include <cmath>

namespace vireo {

unsigned CBasicTestControl::s_mouseButtons = 0;

CBasicTestControl::CBasicTestControl(QWidget* parent) : QWidget(parent) { }

CBasicTestControl::~CBasicTestControl() = default;

CBasicTestControl::Placement CBasicTestControl::WindowPlacement() const
{
    const QRect place = geometry();
    return {place.x(), place.y(), place.x() + place.width(), place.y() + place.height()};
}

QSize CBasicTestControl::ClientSizeOf(const Placement& placement) const
{
    return {placement.right - placement.left - 1, placement.bottom - placement.top - 1};
}

void CBasicTestControl::MeasurePlacement()
{
    m_placement = WindowPlacement();
}

void CBasicTestControl::SetClientSize(QSize size)
{
    m_iWidth = size.width();
    m_iHeight = size.height();
    m_margins = MarginsOf(m_iWidth, m_iHeight);
}

CBasicTestControl::Margins CBasicTestControl::MarginsOf(int width, int height)
{
    constexpr int kMarginPart = 10;
    const int left = width / kMarginPart;
    const int top = height / kMarginPart;
    return {left, top, width - left, height - top};
}

void CBasicTestControl::Initialise()
{
    if (m_bInitialised)
        return;
    // Moves count without a button held down, as they do for every window that is notified.
    setMouseTracking(true);
    MeasurePlacement();
    SetClientSize(ClientSizeOf(m_placement));
    m_bInitialised = true;
    Redraw();
}

bool CBasicTestControl::Redraw()
{
    if (!m_bInitialised)
        return false;
    if (m_surface.isNull() && !MakeSurface())
        return false;
    DrawSurface();
    update();
    return true;
}

bool CBasicTestControl::MakeSurface()
{
    if (m_iWidth == -1)
        ShowMessage("m_iWidth == -1");
    if (m_iHeight == -1)
        ShowMessage("m_iHeight == -1");
    if (m_iWidth == -1 || m_iHeight == -1)
        return false;
    if (m_iWidth < 1 || m_iHeight < 1) {
        // A leaving mouse sets a size of 0 x 0. What the user sees must stay, so such a size lasts
        // only until here, where the window is measured again.
        MeasurePlacement();
        SetClientSize(ClientSizeOf(m_placement).expandedTo({1, 1}));
    }
    const double ratio = devicePixelRatioF();
    m_surface = QImage(QSize(static_cast<int>(std::ceil(m_iWidth * ratio)),
                           static_cast<int>(std::ceil(m_iHeight * ratio))),
        QImage::Format_RGB32);
    if (m_surface.isNull()) {
        ShowMessage("ptrDC == NULL");
        return false;
    }
    m_surface.setDevicePixelRatio(ratio);
    constexpr int kTenth = 10;
    m_iTenthWidth = m_iWidth / kTenth;
    m_iTenthHeight = m_iHeight / kTenth;
    return true;
}

void CBasicTestControl::DrawSurface()
{
    m_surface.fill(Qt::white);
    QPainter dc(&m_surface);
    dc.setFont(font());
    RenderTo(dc, m_iWidth, m_iHeight);
}

/// The frame's lines lie inside of the rectangle, and are whole pixels wide on every device.
void CBasicTestControl::DrawGround(QPainter& dc, int width, int height)
{
    dc.fillRect(0, 0, width, height, Qt::white);
    for (const QRect& line : {QRect(0, 0, width, 1), QRect(0, height - 1, width, 1),
             QRect(0, 0, 1, height), QRect(width - 1, 0, 1, height)})
        dc.fillRect(line, Qt::black);
}

bool CBasicTestControl::RenderTo(QPainter& dc, int width, int height)
{
    if (m_iAverageCharWidth == -1)
        MeasureText();
    if (width < 1) {
        MeasurePlacement();
        SetClientSize(ClientSizeOf(m_placement));
        width = m_iWidth;
        height = m_iHeight;
    }
    if (!m_bPrinting && m_iFontHeight < 1)
        m_iFontHeight = QFontMetrics(dc.font()).height();
    if (!m_bInitialised)
        return false;

    dc.save();
    DrawGround(dc, width, height);
    dc.setPen(Qt::black);
    dc.setBrush(Qt::white);
    DrawContent(dc, width, height);
    ReleasePen(dc);
    ReleaseFont(dc);
    ReleaseBrush(dc);
    dc.restore();
    return true;
}

void CBasicTestControl::MeasureText()
{
    const QFontMetrics metrics(font());
    m_iAverageCharWidth = metrics.averageCharWidth();
    m_iLineHeight = metrics.height() + metrics.leading();
    // Capitals of a face of varying widths are half as wide again as its average character.
    const int halves = QFontInfo(font()).fixedPitch() ? 2 : 3;
    m_iCapitalWidth = halves * m_iAverageCharWidth / 2;
}

void CBasicTestControl::SetPen(QPainter& dc, Qt::PenStyle style, ColourValue colour, int width)
{
    ReleasePen(dc);
    m_replacedPen = dc.pen();
    dc.setPen(QPen(ToQColor(colour), width, style));
}

void CBasicTestControl::SetPenByColourIndex(
    QPainter& dc, Qt::PenStyle style, int width, int colourIndex)
{
    SetPen(dc, style, ColourOfIndex(colourIndex), width);
}

void CBasicTestControl::SetBrush(QPainter& dc, ColourValue colour)
{
    ReleaseBrush(dc);
    m_replacedBrush = dc.brush();
    dc.setBrush(ToQColor(colour));
}

void CBasicTestControl::SetFont(QPainter& dc, int height, const char* face, int weight)
{
    ReleaseFont(dc);
    m_replacedFont = dc.font();
    m_iFontHeight = height;
    dc.setFont(FontOfLineHeight(face ? face : kMonospacedFace, height, weight));
}

void CBasicTestControl::ReleasePen(QPainter& dc)
{
    if (m_replacedPen)
        dc.setPen(*m_replacedPen);
    m_replacedPen.reset();
}

void CBasicTestControl::ReleaseBrush(QPainter& dc)
{
    if (m_replacedBrush)
        dc.setBrush(*m_replacedBrush);
    m_replacedBrush.reset();
}

void CBasicTestControl::ReleaseFont(QPainter& dc)
{
    if (m_replacedFont)
        dc.setFont(*m_replacedFont);
    m_replacedFont.reset();
}

int CBasicTestControl::PositionToScale(int x) const
{
    const int offset = x - (m_placement.IsKnown() ? m_placement : WindowPlacement()).left;
    if (offset < 0 || offset > m_iWidth || m_iWidth < 1)
        return -1;
    constexpr double kScale = 256.0;
    return static_cast<int>(std::lround(offset * kScale / m_iWidth));
}

bool CBasicTestControl::IsInside(QPoint point) const
{
    const Placement place = m_placement.IsKnown() ? m_placement : WindowPlacement();
    return point.x() >= 0 && point.x() <= place.right - place.left && point.y() >= 0
        && point.y() <= place.bottom - place.top;
}

bool CBasicTestControl::IsUnsetColour() const
{
    constexpr ColourValue kMinusOne = 0xFFFFFFFF;
    const ColourValue colour = m_colourTable.front();
    return colour == Colour::kBlack || colour == kMinusOne || colour == Colour::kWhite;
}

void CBasicTestControl::OnPaint()
{
    if (!m_bInitialised || !m_bPaintEnabled)
        return;
    // A surface of another screen's pixel ratio would be blurred on this one. A size that is not
    // known has been reported by Redraw; reporting it again here would be a box for every paint.
    const bool isStale = m_surface.isNull() || m_surface.devicePixelRatio() != devicePixelRatioF();
    if (isStale && (m_iWidth == -1 || m_iHeight == -1 || !MakeSurface()))
        return;
    if (isStale)
        DrawSurface();
    QPainter(this).drawImage(QPoint(0, 0), m_surface);
}

bool CBasicTestControl::DrawContent(QPainter&, int, int)
{
    return true;
}

void CBasicTestControl::OnLButtonDblClk(unsigned buttons, QPoint point)
{
    OnLButtonDown(buttons, point);
}

void CBasicTestControl::OnLButtonDown(unsigned, QPoint) { }
void CBasicTestControl::OnLButtonUp(unsigned, QPoint) { }
void CBasicTestControl::OnMouseMove(unsigned, QPoint) { }
void CBasicTestControl::OnSpareMouse(unsigned, QPoint) { }
void CBasicTestControl::OnRButtonDown(unsigned, QPoint) { }
void CBasicTestControl::OnRButtonUp(unsigned, QPoint) { }
void CBasicTestControl::OnMouseLeave(unsigned, QPoint) { }
void CBasicTestControl::OnTimer(int) { }

void CBasicTestControl::OnSize(unsigned, int width, int height)
{
    if (width == m_iWidth && height == m_iHeight)
        return;
    SetClientSize({width, height});
    m_surface = {};
    Redraw();
    OnResized();
}

// The control's window procedure: what Qt reports, handed to the handlers above.

void CBasicTestControl::paintEvent(QPaintEvent*)
{
    OnPaint();
}

void CBasicTestControl::resizeEvent(QResizeEvent*)
{
    MeasurePlacement();
    if (!m_bInitialised)
        return;
    constexpr unsigned kRestored = 0;
    const QSize size = ClientSizeOf(m_placement);
    OnSize(kRestored, size.width(), size.height());
}

void CBasicTestControl::moveEvent(QMoveEvent*)
{
    MeasurePlacement();
}

void CBasicTestControl::mousePressEvent(QMouseEvent* event)
{
    // The event stays accepted: some styles drag the window by a press that nobody wants.
    if (event->button() == Qt::LeftButton) {
        s_mouseButtons |= LeftButton;
        OnLButtonDown(s_mouseButtons, event->pos());
    } else if (event->button() == Qt::RightButton) {
        s_mouseButtons |= RightButton;
        OnRButtonDown(s_mouseButtons, event->pos());
    }
}

void CBasicTestControl::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        s_mouseButtons &= ~unsigned{LeftButton};
        OnLButtonUp(s_mouseButtons, event->pos());
    } else if (event->button() == Qt::RightButton) {
        s_mouseButtons &= ~unsigned{RightButton};
        OnRButtonUp(s_mouseButtons, event->pos());
    }
}

void CBasicTestControl::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        OnLButtonDblClk(s_mouseButtons, event->pos());
}

void CBasicTestControl::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint point = event->pos();
    OnMouseMove(s_mouseButtons, point);
    QMetaObject::invokeMethod(
        this, [this, buttons = s_mouseButtons, point] { emit MouseMoved(buttons, point); },
        Qt::QueuedConnection);
}

void CBasicTestControl::leaveEvent(QEvent*)
{
    // The path of a size message, with the zeros of a leaving mouse as its size: kept on purpose.
    // MakeSurface sees to it that the plot does not vanish.
    OnMouseLeave(s_mouseButtons, QPoint(0, 0));
    OnSize(0, 0, 0);
}

void CBasicTestControl::timerEvent(QTimerEvent* event)
{
    OnTimer(event->timerId());
}

} // namespace vireo
