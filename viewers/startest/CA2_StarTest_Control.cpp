#include "viewers/startest/CA2_StarTest_Control.h"

#include "viewers/startest/StarTestCurves.h"
#include "viewers/startest/StarTestData.h"

#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace vireo {

CA2_StarTest_Control::CA2_StarTest_Control(QWidget* parent) : CHorizontalZoomDouble_Control(parent)
{
    setMinimumSize(320, 200);
    connect(this, &CHorizontalZoomDouble_Control::CursorMoved, this, [this](std::int64_t line) {
        if (line >= 0)
            m_lastCursorLine = line;
    });
}

void CA2_StarTest_Control::SetData(StarTestData* test)
{
    m_data = test;
    ShowData();
}

void CA2_StarTest_Control::ShowData()
{
    m_banks = {};
    m_lastCursorLine.reset();
    if (!HasAutomaticScale())
        SetVerticalScale({}); // From -5 to +5, as the vibration curves ask for.
    TakeCurves();
    OnCurvesFilled();
    ZoomAll();
}

/// Takes the curves of the selected sweep; OnCurvesFilled must follow.
void CA2_StarTest_Control::TakeCurves()
{
    ClearCurves();
    m_markers.clear();
    if (m_data) {
        FillCurves(*m_data, Curves());
        m_markers = MarkersOf(*m_data);
    }
}

std::optional<CurveSlots::Visibility>& CA2_StarTest_Control::Bank()
{
    const StarTestSweep* const sweep = m_data->SelectedSweep();
    return m_banks[sweep && sweep->m_bAvgResult ? 1 : 0];
}

void CA2_StarTest_Control::SetLimits(std::vector<Limit> limits)
{
    if (limits.empty() && m_limits.empty())
        return;
    m_limits = std::move(limits);
    Redraw();
}

void CA2_StarTest_Control::SelectSweep(std::int64_t index)
{
    if (!m_data)
        return;
    if (m_bKeepVisibility)
        Bank() = Curves().Visible();
    m_data->Select(index);
    TakeCurves();
    if (m_bKeepVisibility && Bank())
        Curves().SetVisible(*Bank());
    OnCurvesFilled();
    emit SweepSelected(m_data->m_iSelectedIndex);
}

std::int64_t CA2_StarTest_Control::LastCursorLine() const
{
    return std::min(
        m_lastCursorLine.value_or(Zoom().centre), std::max<std::int64_t>(Curves().Points() - 1, 0));
}

CurvePlotContent CA2_StarTest_Control::PlotContent() const
{
    CurvePlotContent plot = CHorizontalZoomDouble_Control::PlotContent();
    if (m_data)
        DescribePlot(*m_data, plot, m_limits);
    return plot;
}

StarTestPlotContent CA2_StarTest_Control::Content() const
{
    return {m_data, PlotContent(), m_markers};
}

bool CA2_StarTest_Control::DrawContent(QPainter& dc, int width, int height)
{
    DrawStarTestPlot(dc, QSizeF(width, height), Content());
    return true;
}

void CA2_StarTest_Control::DrawCursor(QPainter& dc, QSizeF size)
{
    DrawStarTestCursor(dc, size, Content(), CursorLine());
}

std::optional<std::size_t> CA2_StarTest_Control::SweepUnder(QPoint point) const
{
    constexpr int kListLeft = 6;
    if (!m_data || point.x() < kListLeft || point.x() >= PlotLeft())
        return std::nullopt;
    return SweepList::Of(*m_data, PlotSize()).SweepAt(point.y());
}

void CA2_StarTest_Control::OnClick(QPoint point)
{
    const auto sweep = IsZoomMode() ? std::nullopt : SweepUnder(point);
    if (sweep)
        SelectSweep(static_cast<std::int64_t>(*sweep));
    else
        CHorizontalZoomDouble_Control::OnClick(point);
}

void CA2_StarTest_Control::OnMouseMove(unsigned buttons, QPoint point)
{
    CHorizontalZoomDouble_Control::OnMouseMove(buttons, point);
    if (buttons == 0)
        setCursor(!IsZoomMode() && SweepUnder(point) ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void CA2_StarTest_Control::keyPressEvent(QKeyEvent* event)
{
    const bool isUp = event->key() == Qt::Key_Up;
    if (!m_data || (!isUp && event->key() != Qt::Key_Down)) {
        CHorizontalZoomDouble_Control::keyPressEvent(event);
        return;
    }
    SelectSweep(static_cast<std::int64_t>(m_data->m_iSelectedIndex) + (isUp ? -1 : 1));
}

QSize CA2_StarTest_Control::sizeHint() const
{
    return {1000, 460};
}

} // namespace vireo
