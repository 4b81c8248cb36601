#include "viewers/controls/CLPFControle.h"

#include "viewers/controls/PrintCommand.h"

#include <QPainter>
#include <QPrinter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vireo {

namespace {

constexpr double kClickZoom = 2.0;
constexpr double kWheelZoom = 1.25;
constexpr std::size_t kHeaderLines = 20;

} // namespace

CLPFControle::CLPFControle(QWidget* parent) : CLinePlot(parent)
{
    setMinimumSize(120, 80);
}

void CLPFControle::SetLine(const ProfileLine* line, ShownColour shown)
{
    m_content.line = line;
    m_content.shown = shown;
    Recompose();
}

void CLPFControle::SetShownColour(ShownColour shown)
{
    m_content.shown = shown;
    Recompose();
}

void CLPFControle::SetCameras(const ProfileCameras& cameras)
{
    m_content.cameras = cameras;
    Recompose();
}

void CLPFControle::SetUnit(const ProfileUnit& unit)
{
    m_content.unit = unit;
    Redraw();
}

void CLPFControle::SetLimits(std::vector<Limit> limits)
{
    if (limits.empty() && m_limits.empty())
        return;
    m_limits = std::move(limits);
    m_content.limits = m_limits;
    Redraw();
}

void CLPFControle::SetDetails(std::vector<const CLPFControle*> details)
{
    m_details = std::move(details);
    for (const CLPFControle* detail : m_details)
        connect(detail, &CLPFControle::ViewChanged, this, &CLPFControle::UpdateStretches);
    UpdateStretches();
}

void CLPFControle::ZoomAll()
{
    Show(ProfileMode::Overview, 0, Side::Left);
}

void CLPFControle::ShowCamera(int camera, Side side, int zoomStep)
{
    Show(ProfileMode::Camera, camera, side, zoomStep);
}

void CLPFControle::ShowLightProfile(int camera, Side side)
{
    Show(ProfileMode::LightProfile, camera, side);
}

void CLPFControle::ShowScanWidth(int camera, Side side)
{
    Show(ProfileMode::ScanWidth, camera, side);
}

void CLPFControle::ShowVerticalPositioning(int camera, Side side)
{
    Show(ProfileMode::VerticalPositioning, camera, side);
}

void CLPFControle::Show(ProfileMode mode, int camera, Side side, int zoomStep)
{
    m_request = {mode, side, camera, zoomStep};
    m_bUserView = false;
    Recompose();
}

/// Works the scene out anew for other data or another request.
void CLPFControle::Recompose()
{
    static const ProfileLine kNoLine;
    const ProfileView before = View();
    m_content.scene = ComposeScene(
        m_request, m_content.line ? *m_content.line : kNoLine, m_content.shown, m_content.cameras);
    if (m_bUserView)
        m_content.scene.view = before.Within(LineLength());
    OnViewChanged();
}

void CLPFControle::SetView(const ProfileView& view)
{
    m_bUserView = true;
    ApplyView(view);
}

void CLPFControle::ApplyView(const ProfileView& view)
{
    const ProfileView valid = view.Within(LineLength());
    if (valid == View())
        return;
    m_content.scene.view = valid;
    OnViewChanged();
}

void CLPFControle::UpdateStretches()
{
    m_content.stretches.clear();
    for (const CLPFControle* detail : m_details)
        m_content.stretches.push_back({detail->View(), detail->m_request.side});
    Redraw();
}

std::int64_t CLPFControle::LineLength() const
{
    return m_content.line ? m_content.line->Length() : 0;
}

CLinePlot::ScrollState CLPFControle::Scrolled() const
{
    // Whole pixels are fine enough for a scroll bar, and a line has fewer than an int holds.
    return {static_cast<int>(LineLength()), static_cast<int>(std::lround(View().length)),
        static_cast<int>(std::lround(View().first))};
}

void CLPFControle::ScrollTo(int first)
{
    SetView({static_cast<double>(first), View().length});
}

void CLPFControle::DragView(int fromX, int toX)
{
    const ProfileScale scale = ScaleOf(m_content, size());
    SetView(View().MovedBy(scale.PixelAt(fromX) - scale.PixelAt(toX), LineLength()));
}

void CLPFControle::MoveView(double share)
{
    SetView(View().MovedBy(share * View().length, LineLength()));
}

double CLPFControle::PixelUnder(QPoint point) const
{
    const ProfileScale scale = ScaleOf(m_content, size());
    return std::clamp(scale.PixelAt(point.x()), View().first, View().End());
}

std::optional<CursorReading> CLPFControle::PositionAt(QPoint point) const
{
    const ProfileScale scale = ScaleOf(m_content, size());
    if (!m_content.line || !scale.Contains(point.x(), point.y()))
        return std::nullopt;
    CursorReading reading;
    reading.pixel = static_cast<std::int64_t>(std::floor(scale.PixelAt(point.x())));
    const auto value = m_content.line->ValueAt(PlaneOf(m_content.shown), reading.pixel);
    if (!value)
        return std::nullopt;
    reading.value = *value;
    reading.camera = m_content.cameras.CameraAt(reading.pixel);
    if (m_content.cameras.pixelPitchMm > 0.0)
        reading.positionMm = static_cast<double>(reading.pixel) * m_content.cameras.pixelPitchMm;
    return reading;
}

void CLPFControle::OnLButtonDown(QPoint point)
{
    SetView(View().ZoomedAt(PixelUnder(point), kClickZoom, LineLength()));
}

void CLPFControle::OnLButtonDblClk(QPoint point)
{
    OnLButtonDown(point);
}

void CLPFControle::OnRButtonDown(QPoint point)
{
    SetView(View().ZoomedAt(PixelUnder(point), 1.0 / kClickZoom, LineLength()));
}

void CLPFControle::OnRButtonDblClk(QPoint point)
{
    OnRButtonDown(point);
}

void CLPFControle::OnMouseWheel(QPoint point, int steps)
{
    SetView(View().ZoomedAt(PixelUnder(point), std::pow(kWheelZoom, steps), LineLength()));
}

void CLPFControle::SetHeader(std::vector<std::string> lines)
{
    lines.resize(std::min(lines.size(), kHeaderLines));
    m_header = std::move(lines);
}

ProfilePage CLPFControle::Page(const std::vector<const CLPFControle*>& companions) const
{
    ProfilePage page{m_header, {m_content, size()}, {}};
    for (const CLPFControle* companion : companions)
        page.companions.push_back({companion->m_content, companion->size()});
    return page;
}

namespace {

bool PrintOn(QPrinter& printer, const ProfilePage& page)
{
    return PrintOnePage(
        printer, kPrintDocumentName, [&page](QPainter& painter, const QRectF& printable) {
            DrawProfilePage(painter, printable, page);
        });
}

} // namespace

void CLPFControle::Print(const std::vector<const CLPFControle*>& companions)
{
    QPrinter printer(QPrinter::HighResolution);
    if (AskForPrinter(printer, this) && !PrintOn(printer, Page(companions)))
        ShowPrintFailure();
}

void CLPFControle::PrintPreview(const std::vector<const CLPFControle*>& companions)
{
    QPrinter printer(QPrinter::HighResolution);
    const ProfilePage page = Page(companions);
    ShowPrintPreview(printer, this, [&page](QPrinter& target) { PrintOn(target, page); });
}

void CLPFControle::ReadCursor(std::optional<QPoint> point)
{
    m_cursor = point ? PositionAt(*point) : std::nullopt;
    emit CursorMoved(m_cursor);
}

void CLPFControle::DrawPlot(QPainter& painter)
{
    DrawProfilePlot(painter, size(), m_content);
}

void CLPFControle::DrawCursor(QPainter& painter)
{
    if (m_cursor)
        DrawProfileCursor(painter, size(), m_content, *m_cursor);
}

QSize CLPFControle::sizeHint() const
{
    return {800, 250};
}

} // namespace vireo
