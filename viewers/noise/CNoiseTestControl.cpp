#include "viewers/noise/CNoiseTestControl.h"

#include "viewers/controls/PrintCommand.h"
#include "viewers/noise/NoiseData.h"

#include <QPainter>
#include <QPrinter>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace vireo {

CNoiseTestControl::CNoiseTestControl(QWidget* parent) : CLinePlot(parent)
{
    setMinimumSize(160, 100);
}

void CNoiseTestControl::SetData(const NoiseData* record)
{
    m_content.data = record;
    ZoomAll();
}

void CNoiseTestControl::SetUnit(PositionUnit unit)
{
    m_content.unit = unit;
    Redraw();
}

void CNoiseTestControl::SetLimits(std::vector<Limit> limits)
{
    if (limits.empty() && m_limits.empty())
        return;
    m_limits = std::move(limits);
    m_content.limits = m_limits;
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
    OnViewChanged();
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

CLinePlot::ScrollState CNoiseTestControl::Scrolled() const
{
    return {static_cast<int>(LineLength()), static_cast<int>(m_view.Page(LineLength())),
        static_cast<int>(m_view.ScrollPosition(LineLength()))};
}

void CNoiseTestControl::ScrollTo(int first)
{
    SetView(m_view.ScrolledTo(first, LineLength()));
}

void CNoiseTestControl::DragView(int fromX, int toX)
{
    const ProfileScale scale = Scale();
    const double pixels = scale.PixelAt(fromX) - scale.PixelAt(toX);
    SetView(m_view.MovedBy(std::lround(pixels), LineLength()));
}

void CNoiseTestControl::MoveView(double share)
{
    const auto page = static_cast<double>(m_view.Page(LineLength()));
    SetView(m_view.MovedBy(std::lround(share * page), LineLength()));
}

void CNoiseTestControl::OnLButtonDown(QPoint point)
{
    const ProfileScale scale = Scale();
    const double x = std::clamp(point.x() - scale.left, 0.0, scale.width);
    SetView(m_view.ZoomedIn(x, scale.width, LineLength()));
}

void CNoiseTestControl::OnRButtonDown(QPoint)
{
    ZoomOut();
}

void CNoiseTestControl::OnMouseWheel(QPoint point, int steps)
{
    for (int step = 0; step < std::abs(steps); ++step) {
        const double pixel =
            std::clamp(Scale().PixelAt(point.x()), m_content.view.first, m_content.view.End());
        SetView(m_view.ZoomedAt(pixel, steps > 0, LineLength()));
    }
}

std::optional<std::int64_t> CNoiseTestControl::PixelAt(QPoint point) const
{
    const ProfileScale scale = Scale();
    if (!scale.Contains(point.x(), point.y()))
        return std::nullopt;
    const auto pixel = static_cast<std::int64_t>(std::floor(scale.PixelAt(point.x())));
    return pixel >= 0 && pixel < LineLength() ? std::optional(pixel) : std::nullopt;
}

void CNoiseTestControl::ReadCursor(std::optional<QPoint> point)
{
    m_cursor = point ? PixelAt(*point) : std::nullopt;
    emit CursorMoved(m_cursor);
}

void CNoiseTestControl::DrawPlot(QPainter& painter)
{
    DrawNoisePlot(painter, size(), m_content);
}

void CNoiseTestControl::DrawCursor(QPainter& painter)
{
    if (m_cursor)
        DrawNoiseCursor(painter, size(), m_content, *m_cursor);
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
