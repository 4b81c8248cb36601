#include "viewers/controls/CWait_Dialog.h"

#include "viewers/controls/Placement.h"
#include "viewers/controls/Resources.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

#include <exception>
#include <thread>

namespace vireo {

namespace {
/// Steps of the bar, so that it moves smoothly across any screen.
constexpr int kBarSteps = 1000;
constexpr int kShowProgressMilliseconds = 50;
} // namespace

CWait_Dialog::CWait_Dialog(
    const QString& title, const QString& text, Cancelling cancelling, QWidget* parent)
    : QDialog(parent,
        Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint
            | (cancelling == Cancelling::Offered ? Qt::WindowCloseButtonHint : Qt::WindowFlags())),
      m_cancelling(cancelling),
      m_text(new QLabel(text, this)),
      m_bar(new QProgressBar(this))
{
    setWindowTitle(title);
    setWindowIcon(ApplicationIcon());
    setWindowModality(Qt::ApplicationModal);
    m_text->setObjectName(QStringLiteral("waitText"));
    m_text->setTextFormat(Qt::PlainText);
    m_bar->setObjectName(QStringLiteral("waitBar"));
    m_bar->setRange(0, 0);

    constexpr int kNarrowest = 360;
    auto* const page = new QVBoxLayout(this);
    m_bar->setMinimumWidth(kNarrowest);
    page->addWidget(m_text);
    page->addWidget(m_bar);
    if (cancelling == Cancelling::Offered) {
        m_cancelButton = new QPushButton(tr("Cancel"), this);
        m_cancelButton->setObjectName(QStringLiteral("cancelButton"));
        connect(m_cancelButton, &QPushButton::clicked, this, &CWait_Dialog::reject);
        page->addWidget(m_cancelButton, 0, Qt::AlignRight);
    }
    page->setSizeConstraint(QLayout::SetFixedSize);
    connect(&m_progressTimer, &QTimer::timeout, this, &CWait_Dialog::ShowProgress);
}

QString CWait_Dialog::Text() const
{
    return m_text->text();
}

void CWait_Dialog::SetText(const QString& text)
{
    m_text->setText(text);
}

bool CWait_Dialog::Run(const std::function<void(WorkProgress&)>& work)
{
    WorkProgress progress;
    m_progress = &progress;
    m_bEnded = false;
    if (m_cancelButton)
        m_cancelButton->setEnabled(true);
    std::exception_ptr fault;
    std::thread worker([&] {
        try {
            work(progress);
        } catch (...) {
            fault = std::current_exception();
        }
        QMetaObject::invokeMethod(
            this, [this] { m_bEnded = true; }, Qt::QueuedConnection);
    });
    WaitForEnd();
    worker.join();
    m_progress = nullptr;
    if (fault)
        std::rethrow_exception(fault);
    return !progress.IsCancelled();
}

void CWait_Dialog::WaitForEnd()
{
    QElapsedTimer clock;
    clock.start();
    m_progressTimer.start(kShowProgressMilliseconds);
    while (!m_bEnded) {
        // What is typed and clicked before the dialog shows is kept, and then is not for others.
        QCoreApplication::processEvents(isVisible()
                ? QEventLoop::WaitForMoreEvents
                : QEventLoop::WaitForMoreEvents | QEventLoop::ExcludeUserInputEvents);
        if (!m_bEnded && !isVisible() && clock.hasExpired(kShowAfterMilliseconds))
            show();
    }
    m_progressTimer.stop();
    hide();
}

void CWait_Dialog::ShowProgress()
{
    const std::optional<double> fraction = m_progress->Fraction();
    m_bar->setRange(0, fraction ? kBarSteps : 0);
    if (fraction)
        m_bar->setValue(static_cast<int>(*fraction * kBarSteps));
}

void CWait_Dialog::reject()
{
    if (m_cancelling == Cancelling::NotOffered || !m_progress)
        return;
    m_progress->Cancel();
    m_cancelButton->setEnabled(false);
}

void CWait_Dialog::showEvent(QShowEvent* event)
{
    // The window that it belongs to may have shrunk into a corner.
    if (!event->spontaneous())
        CentreOnDesktop(*this);
    QDialog::showEvent(event);
}

} // namespace vireo
