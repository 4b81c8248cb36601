#include "viewers/tonal/CTonalResolution_Control.h"

#include "viewers/tonal/TonalResolutionPlot.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace vireo {

CTonalResolution_Control::CTonalResolution_Control(QWidget* parent) : CSymbolTestControl(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(420, 260);
}

QSize CTonalResolution_Control::sizeHint() const
{
    return {760, 480};
}

void CTonalResolution_Control::SetData(const TonalResolutionData* record)
{
    m_content.data = record;
    m_content.pointed.reset();
    Redraw();
}

void CTonalResolution_Control::SetView(TonalView view)
{
    m_content.view = view;
    Redraw();
}

void CTonalResolution_Control::SetFlag(TonalFlag flag, bool isShown)
{
    m_content.flags[flag] = isShown;
    Redraw();
}

void CTonalResolution_Control::SetLoading(bool isLoading)
{
    m_content.isLoading = isLoading;
    Redraw();
}

void CTonalResolution_Control::SetLimits(std::vector<Limit> limits)
{
    if (limits.empty() && m_limits.empty())
        return;
    m_limits = std::move(limits);
    m_content.limits = m_limits;
    Redraw();
}

QImage CTonalResolution_Control::Picture(double ratio)
{
    const QSize size(ClientWidth(), ClientHeight());
    QImage picture((QSizeF(size) * ratio).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    const std::optional<std::size_t> pointed = std::exchange(m_content.pointed, std::nullopt);
    RenderTo(painter, size.width(), size.height());
    m_content.pointed = pointed;
    return picture;
}

bool CTonalResolution_Control::DrawContent(QPainter& dc, int width, int height)
{
    TonalPlotContent content = m_content;
    // The pointer's box is not for paper.
    if (IsPrinting())
        content.pointed.reset();
    DrawTonalPlot(dc, {width, height}, content);
    return content.HasData();
}

void CTonalResolution_Control::OnMouseMove(unsigned, QPoint point)
{
    const ProfileScale scale = TonalScaleOf(m_content.view, ClientWidth(), ClientHeight());
    Point(TonalPatchAt(m_content, scale, point.x(), point.y()));
}

void CTonalResolution_Control::OnMouseLeave(unsigned, QPoint)
{
    Point(std::nullopt);
}

void CTonalResolution_Control::Point(std::optional<std::size_t> patch)
{
    if (patch == m_content.pointed)
        return;
    m_content.pointed = patch;
    Redraw();
}

/// To the neighbour on the axis: the darker patches have the higher numbers and lie left.
void CTonalResolution_Control::PointBeside(int step)
{
    constexpr int kLast = TonalResolutionData::kPatches - 1;
    if (!m_content.HasData())
        return;
    const int first = step < 0 ? -1 : kLast + 1;
    const int patch = m_content.pointed ? static_cast<int>(*m_content.pointed) : first;
    Point(static_cast<std::size_t>(std::clamp(patch - step, 0, kLast)));
}

void CTonalResolution_Control::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Left)
        PointBeside(-1);
    else if (event->key() == Qt::Key_Right)
        PointBeside(1);
    else if (event->key() == Qt::Key_Escape && m_content.pointed)
        Point(std::nullopt);
    else
        CSymbolTestControl::keyPressEvent(event);
}

} // namespace vireo
