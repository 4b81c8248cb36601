#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace vireo {

class CLiveScanner;

/// The bar above a live plot: starts and stops, tells the scanner, its paper and how many lines
/// come; below it, where there is reason, that the scanner is simulated and what went wrong.
class CLiveBar : public QWidget {
    Q_OBJECT

public:
    /// The scanner outlives the bar.
    CLiveBar(CLiveScanner& scanner, QWidget* parent);

private:
    void ShowRunning();
    void ShowLine();
    void ShowFailure(const QString& text);
    void OnStartStop();

    CLiveScanner& m_scanner;
    QPushButton* m_startButton;
    QLabel* m_paperText;
    QLabel* m_rateText;
    QLabel* m_failureText;
};

} // namespace vireo
