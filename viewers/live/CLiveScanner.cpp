#include "viewers/live/CLiveScanner.h"

#include "scanner/ScannerReport.h"
#include "viewers/controls/QtText.h"

#include <QApplication>
#include <QWidget>

#include <utility>

namespace vireo {

CLiveScanner::CLiveScanner(OpenScanner scanner, const QWidget& dialog)
    : m_dialog(dialog),
      m_acquisition(std::move(scanner)),
      m_timer(this)
{
    static_cast<void>(m_acquisition.TakeValues(m_values));
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &CLiveScanner::OnFrame);
    // Values are changed and failures come while no lines are taken, too.
    m_timer.start(kFrameMilliseconds);
}

void CLiveScanner::Start()
{
    m_shown.Restart();
    m_acquisition.Start();
    OnFrame();
}

void CLiveScanner::Stop()
{
    m_acquisition.Stop();
    OnFrame();
}

bool CLiveScanner::IsCovered() const
{
    const QWidget* const modal = QApplication::activeModalWidget();
    if (modal == nullptr || modal == &m_dialog)
        return false;
    for (const QObject* above = modal->parent(); above != nullptr; above = above->parent())
        if (above == &m_dialog)
            return true;
    return false;
}

void CLiveScanner::OnFrame()
{
    if (m_acquisition.TakeValues(m_values))
        emit ValuesChanged();
    if (!IsCovered() && m_acquisition.TakeNewest(m_line)) {
        m_shown.Count(std::chrono::steady_clock::now());
        emit LineTaken();
    }
    if (const bool runs = m_acquisition.IsRunning(); std::exchange(m_bRunning, runs) != runs)
        emit RunningChanged();
    // Reporting may show a message, and the next frames come while it stands there.
    while (const auto failure = m_acquisition.TakeFailure())
        emit Failed(QStringFromText(ReportScannerFailure(*failure)));
}

} // namespace vireo
