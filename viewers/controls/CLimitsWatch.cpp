#include "viewers/controls/CLimitsWatch.h"

#include "viewers/controls/CVerdict_Dialog.h"
#include "viewers/controls/FileDialogs.h"
#include "viewers/controls/QtText.h"
#include "viewers/controls/VerdictIcon.h"

#include <QAction>
#include <QToolButton>

#include <utility>

namespace vireo {

CLimitsWatch::CLimitsWatch(std::unique_ptr<ViewerLimits> limits, QWidget* window)
    : QObject(window),
      m_limits(std::move(limits)),
      m_window(window),
      m_badge(new QToolButton(window)),
      m_choose(new QAction(tr("Choose Li&mits..."), window)),
      m_clear(new QAction(tr("&No Limits"), window))
{
    m_badge->setObjectName(QStringLiteral("verdictBadge"));
    m_badge->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_badge->setAutoRaise(true);
    m_badge->hide();
    m_choose->setObjectName(QStringLiteral("chooseLimits"));
    m_clear->setObjectName(QStringLiteral("clearLimits"));
    connect(m_badge, &QToolButton::clicked, this, &CLimitsWatch::OnBadge);
    connect(m_choose, &QAction::triggered, this, &CLimitsWatch::OnChoose);
    connect(m_clear, &QAction::triggered, this, &CLimitsWatch::OnClear);
    connect(&m_timer, &QTimer::timeout, this, &CLimitsWatch::OnTimer);
    FitActions();
}

CLimitsWatch::~CLimitsWatch() = default;

void CLimitsWatch::SetQuestion(const LimitsQuestion& question)
{
    LimitsQuestion before = std::exchange(m_question, question);
    before.line = question.line;
    if (before != question)
        Begin();
    else
        Continue();
}

/// What is known is no longer true.
void CLimitsWatch::Begin()
{
    m_bAsked = false;
    if (m_answer.verdict || !m_answer.failure.empty())
        Show({});
    Continue();
}

/// One question at a time: where lines go by faster than they are judged, every answer is shown.
void CLimitsWatch::Continue()
{
    const bool hasBoth = !m_question.file.empty() && !m_limits->Chosen().empty();
    m_bToAsk = hasBoth && m_question.failure.empty();
    if (hasBoth && !m_bToAsk)
        Show({{}, std::nullopt, m_question.failure});
    if (m_bToAsk && !m_timer.isActive())
        m_timer.start(kMilliseconds);
}

void CLimitsWatch::OnTimer()
{
    if (m_bAsked) {
        auto answer = m_limits->TakeAnswer();
        if (!answer)
            return;
        m_bAsked = false;
        Show(*std::move(answer));
    }
    if (std::exchange(m_bToAsk, false)) {
        m_limits->Ask(m_question);
        m_bAsked = true;
    } else if (!m_bAsked) {
        m_timer.stop();
    }
}

void CLimitsWatch::Show(LimitsAnswer answer)
{
    m_answer = std::move(answer);
    ShowAnswer();
    emit Answered();
}

void CLimitsWatch::ShowAnswer()
{
    constexpr std::size_t kMostInToolTip = 20;
    const bool hasAnswer = m_answer.verdict || !m_answer.failure.empty();
    m_badge->setVisible(hasAnswer);
    if (!hasAnswer)
        return;
    const VerdictView view = ViewOf(m_answer);
    m_badge->setText(QString::fromStdString(view.text));
    m_badge->setIcon(VerdictIcon(view.look, *m_window));
    QString tip = tr("Limits: %1").arg(QStringFromPath(m_limits->Chosen().filename()));
    if (!m_answer.failure.empty())
        tip += QLatin1Char('\n') + QString::fromStdString(m_answer.failure);
    if (m_answer.verdict && m_answer.verdict->failedCount > 0)
        tip += QLatin1Char('\n')
            + QString::fromStdString(FailureText(*m_answer.verdict, kMostInToolTip));
    // As plain text, whatever a file says of itself.
    m_badge->setToolTip(QStringLiteral("<p style='white-space:pre'>") + tip.toHtmlEscaped()
        + QStringLiteral("</p>"));
    m_badge->setAccessibleName(tr("Verdict: %1").arg(m_badge->text()));
}

void CLimitsWatch::OnBadge()
{
    CVerdict_Dialog(m_answer, m_limits->Chosen(), m_window).exec();
}

void CLimitsWatch::OnChoose()
{
    const std::filesystem::path file = AskForFileToOpen(m_window,
        {tr("Limits"), tr("Limits (*.txt);;All files (*)"), QStringLiteral("txt")},
        m_limits->Chosen());
    if (file.empty())
        return;
    LimitsFile limits;
    if (const auto fault = limits.Read(file)) {
        TellCannotOpen(file, fault->Text());
        return;
    }
    m_limits->Choose(file);
    FitActions();
    Begin();
}

void CLimitsWatch::OnClear()
{
    m_limits->Choose({});
    FitActions();
    Begin();
}

void CLimitsWatch::FitActions()
{
    const std::filesystem::path chosen = m_limits->Chosen();
    m_clear->setEnabled(!chosen.empty());
    const QString tip =
        chosen.empty() ? tr("No limits are chosen") : tr("Limits: %1").arg(QStringFromPath(chosen));
    m_choose->setToolTip(tip);
    m_choose->setText(chosen.empty()
            ? tr("Choose Li&mits...")
            : tr("Choose Li&mits... (%1)")
                  .arg(QStringFromPath(chosen.filename()).replace(QLatin1Char('&'), "&&")));
}

} // namespace vireo
