#include "viewers/controls/CElapsed_Control.h"

#include "viewers/controls/Fonts.h"
#include "viewers/controls/QtText.h"

#include <chrono>

namespace vireo {

CElapsed_Control::CElapsed_Control(QWidget* parent)
    : CBasicTestControl(parent),
      m_start(CElapsed_Control::TickCount())
{
}

std::int64_t CElapsed_Control::TickCount() const
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void CElapsed_Control::Reset()
{
    m_start = TickCount();
    OnTimer(0);
}

void CElapsed_Control::Start(int periodMilliseconds)
{
    startTimer(periodMilliseconds);
}

void CElapsed_Control::OnTimer(int)
{
    const ElapsedTime elapsed = ElapsedTime::FromMilliseconds(TickCount() - m_start);
    if (elapsed == m_shown)
        return;
    m_shown = elapsed;
    Redraw();
}

bool CElapsed_Control::DrawContent(QPainter& dc, int width, int height)
{
    constexpr int kTextHeight = 14;
    const QColor face = palette().color(QPalette::Active, QPalette::Button);
    dc.fillRect(0, 0, width, height, face);
    SetFont(dc, kTextHeight, kSansFace, kNormalWeight);
    dc.setPen(palette().color(QPalette::Disabled, QPalette::WindowText));
    dc.drawText(QRect(0, 0, width, height), Qt::AlignHCenter | Qt::AlignTop,
        QStringFromText(m_shown.Text()));
    return true;
}

} // namespace vireo
