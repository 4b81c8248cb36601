#pragma once

#include "viewers/controls/ViewerLimits.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

class QAction;
class QToolButton;
class QWidget;

namespace vireo {

/// Keeps a window's verdict up to date: asks when another file or line is shown or other limits are
/// chosen, well behind the first paint, and shows the answer on a badge. Clicking the badge lists
/// the figures that are not within their limits.
class CLimitsWatch : public QObject {
    Q_OBJECT

public:
    /// The badge and the actions belong to the window.
    CLimitsWatch(std::unique_ptr<ViewerLimits> limits, QWidget* window);
    ~CLimitsWatch() override;

    /// The file on view; an empty path when there is none. Asked anew every time.
    void SetQuestion(const LimitsQuestion& question);
    const LimitsAnswer& Answer() const { return m_answer; }

    QToolButton& Badge() const { return *m_badge; }
    QAction& ChooseAction() const { return *m_choose; }
    QAction& ClearAction() const { return *m_clear; }

    /// How long after a change the figures are asked for, and how often the answer is.
    static constexpr int kMilliseconds = 100;

signals:
    /// Other limits hold for the file, or there is another verdict.
    void Answered();

private:
    void OnChoose();
    void OnClear();
    void OnTimer();
    void OnBadge();
    void FitActions();
    void Begin();
    void Continue();
    void Show(LimitsAnswer answer);
    void ShowAnswer();

    std::unique_ptr<ViewerLimits> m_limits;
    QWidget* m_window;
    QToolButton* m_badge;
    QAction* m_choose;
    QAction* m_clear;
    QTimer m_timer;
    LimitsQuestion m_question;
    bool m_bToAsk = false; ///< The question is not the one that has been asked.
    bool m_bAsked = false; ///< An answer will come.
    LimitsAnswer m_answer;
};

} // namespace vireo
