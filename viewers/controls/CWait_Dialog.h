#pragma once

#include "platform/WorkProgress.h"

#include <QDialog>
#include <QTimer>

#include <functional>

class QLabel;
class QProgressBar;
class QPushButton;

namespace vireo {

/// Asks for patience while something takes long: a text, a bar that shows how far the work is, and
/// a button that stops it.
///
/// Work that needs no window goes through Run, on a thread of its own. For work that must stay on
/// this thread, such as printing: show() the dialog, and PumpMessages() now and then.
class CWait_Dialog : public QDialog {
    Q_OBJECT

public:
    enum class Cancelling { Offered, NotOffered };

    CWait_Dialog(const QString& title, const QString& text,
        Cancelling cancelling = Cancelling::Offered, QWidget* parent = nullptr);

    /// Work that ends sooner than this never shows the dialog: it would only flicker.
    static constexpr int kShowAfterMilliseconds = 300;

    QString Text() const;
    void SetText(const QString& text);

    /// Does the work on a thread of its own and returns when it has ended; until then no other
    /// window takes any input. What the work throws is thrown on. False when the user has asked for
    /// it to stop: what the work leaves behind is then its own affair.
    bool Run(const std::function<void(WorkProgress&)>& work);

    /// Every way of closing the dialog asks the work to stop; it closes when the work has ended.
    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void ShowProgress();
    /// Handles events until the work has ended, at first without showing the dialog.
    void WaitForEnd();

    Cancelling m_cancelling;
    QLabel* m_text;
    QProgressBar* m_bar;
    QPushButton* m_cancelButton = nullptr;
    QTimer m_progressTimer;
    WorkProgress* m_progress = nullptr; ///< Of the work that runs now.
    bool m_bEnded = false;
};

} // namespace vireo
