#include "viewers/controls/CHorizontalZoomDouble_Control.h"

#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vireo {

namespace {

constexpr double kButtonZoom = 2.0;

} // namespace

CHorizontalZoomDouble_Control::CHorizontalZoomDouble_Control(QWidget* parent)
    : CSymbolTestControl(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CHorizontalZoomDouble_Control::SetCurve(
    std::size_t index, std::string name, ColourValue colour, std::vector<double> values)
{
    m_curves.SetCurve(index, std::move(name), colour, std::move(values));
}

void CHorizontalZoomDouble_Control::OnCurvesFilled()
{
    m_curves.Summarise();
    m_zoom = m_zoom.Over(m_curves.Points());
    ChangeView();
}

void CHorizontalZoomDouble_Control::SetZoom(const HorizontalZoom& zoom)
{
    if (zoom == m_zoom)
        return;
    m_zoom = zoom;
    ChangeView();
}

void CHorizontalZoomDouble_Control::ZoomAll()
{
    SetZoom(HorizontalZoom::Whole(m_curves.Points()));
}

void CHorizontalZoomDouble_Control::ZoomIn()
{
    SetZoom(m_zoom.CentredOn(static_cast<double>(m_zoom.centre), kButtonZoom));
}

void CHorizontalZoomDouble_Control::ZoomOut()
{
    SetZoom(m_zoom.CentredOn(static_cast<double>(m_zoom.centre), 1.0 / kButtonZoom));
}

void CHorizontalZoomDouble_Control::SetVerticalScale(const VerticalScale& scale)
{
    if (!scale.IsValid())
        return;
    m_bAutomaticScale = false;
    m_scale = scale;
    ChangeView();
}

void CHorizontalZoomDouble_Control::SetAutomaticScale(bool isAutomatic)
{
    m_bAutomaticScale = isAutomatic;
    ChangeView();
}

void CHorizontalZoomDouble_Control::SetZoomMode(bool isOn)
{
    m_bZoomMode = isOn;
    Redraw();
}

/// Something else is in view: fits the values to it, tells everybody and draws anew.
void CHorizontalZoomDouble_Control::ChangeView()
{
    FitScale();
    UpdateScrollBar();
    emit ViewChanged();
    Redraw();
}

void CHorizontalZoomDouble_Control::FitScale()
{
    if (m_bAutomaticScale)
        m_scale = VerticalScale::Fitting(m_curves.RangeIn(m_zoom.View()));
}

CurvePlotContent CHorizontalZoomDouble_Control::PlotContent() const
{
    CurvePlotContent content;
    content.curves = &m_curves;
    content.view = m_zoom.View();
    content.scale = m_scale;
    content.isZoomMode = m_bZoomMode;
    content.target =
        IsPrinting() ? CurvePlotContent::Target::Paper : CurvePlotContent::Target::Screen;
    return content;
}

bool CHorizontalZoomDouble_Control::DrawContent(QPainter& dc, int width, int height)
{
    DrawCurvePlot(dc, QSizeF(width, height), PlotContent());
    return true;
}

void CHorizontalZoomDouble_Control::DrawCursor(QPainter& dc, QSizeF size)
{
    if (m_iCursorLine >= 0)
        DrawCurveCursor(dc, size, PlotContent(), m_iCursorLine);
}

void CHorizontalZoomDouble_Control::OnPaint()
{
    CSymbolTestControl::OnPaint();
    // What a paint clears is one pixel more than a plot's surface covers, on the right and below.
    QPainter dc(this);
    const QColor ground = palette().color(backgroundRole());
    dc.fillRect(ClientWidth(), 0, width() - ClientWidth(), height(), ground);
    dc.fillRect(0, ClientHeight(), width(), height() - ClientHeight(), ground);
    if (IsInitialised())
        DrawCursor(dc, PlotSize());
}

void CHorizontalZoomDouble_Control::OnResized()
{
    UpdateScrollBar();
}

// The scroll bar. Whole points are fine enough for it.

void CHorizontalZoomDouble_Control::SetScrollBar(QScrollBar* scrollBar)
{
    m_scrollBar = scrollBar;
    connect(scrollBar, &QScrollBar::valueChanged, this, &CHorizontalZoomDouble_Control::OnScrolled);
    UpdateScrollBar();
}

void CHorizontalZoomDouble_Control::UpdateScrollBar()
{
    if (!m_scrollBar)
        return;
    const auto page = static_cast<int>(std::lround(m_zoom.Span()));
    const int hidden = std::max(static_cast<int>(m_zoom.visible) - page, 0);
    const QSignalBlocker quiet(m_scrollBar);
    m_scrollBar->setRange(0, hidden);
    m_scrollBar->setPageStep(std::max(page, 1));
    m_scrollBar->setSingleStep(std::max(page / 10, 1));
    m_scrollBar->setValue(static_cast<int>(std::lround(m_zoom.View().first)));
    m_scrollBar->setEnabled(hidden > 0);
}

void CHorizontalZoomDouble_Control::OnScrolled(int first)
{
    SetZoom(m_zoom.MovedBy(first - m_zoom.View().first));
}

} // namespace vireo
