#pragma once

#include "scanner/LineAcquisition.h"

#include <QObject>
#include <QString>
#include <QTimer>

class QWidget;

namespace vireo {

/// A scanner that takes lines, for a dialog: asks 33 times a second for what is new, tells it by
/// signals, and reports failures, each once. While another window asks something in front of the
/// dialog, where to save the line for instance, the line stays as it is.
class CLiveScanner : public QObject {
    Q_OBJECT

public:
    static constexpr int kFrameMilliseconds = 30;

    /// Lines are taken from Start on. The dialog outlives this.
    CLiveScanner(OpenScanner scanner, const QWidget& dialog);

    void Start();
    void Stop();
    bool IsRunning() const { return m_bRunning; }

    const ScannerIdentity& Identity() const { return m_acquisition.Identity(); }
    bool IsSimulated() const { return m_acquisition.IsSimulated(); }
    /// The newest line; without pixels before the first.
    const AcquiredLine& Line() const { return m_line; }
    bool HasLine() const { return m_line.number > 0; }
    const ScannerValues& Values() const { return m_values; }
    /// How many lines have been shown in a second.
    double ShownPerSecond() const { return m_shown.PerSecond(); }

    void SetAverage(int lines) { m_acquisition.SetAverage(lines); }
    void RestartHold() { m_acquisition.RestartHold(); }
    /// ValuesChanged comes when it has been done or refused.
    void ChangeValue(ScannerSetting setting, SettingPlace place, int value)
    {
        m_acquisition.ChangeValue(setting, place, value);
    }

signals:
    void LineTaken();
    void ValuesChanged();
    /// Started, stopped, or ended by a failure.
    void RunningChanged();
    /// A failure has been reported; this is its text.
    void Failed(const QString& text);

private:
    void OnFrame();
    bool IsCovered() const;

    const QWidget& m_dialog;
    LineAcquisition m_acquisition;
    AcquiredLine m_line;
    ScannerValues m_values;
    LineRate m_shown;
    QTimer m_timer;
    bool m_bRunning = false;
};

} // namespace vireo
