#include "viewers/live/CLiveBar.h"

#include "viewers/controls/ElidedLabel.h"
#include "viewers/controls/QtText.h"
#include "viewers/live/CLiveScanner.h"
#include "viewers/live/LiveText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

namespace vireo {

namespace {

/// A strip of text across the bar that nobody overlooks.
QLabel* MakeStrip(const char* name, const char* colours, QWidget* parent)
{
    auto* const strip = new QLabel(parent);
    strip->setObjectName(QLatin1String(name));
    strip->setStyleSheet(QStringLiteral("QLabel { %1; padding: 3px 6px; }").arg(colours));
    strip->setTextFormat(Qt::PlainText);
    strip->setWordWrap(true);
    return strip;
}

QLabel* MakeText(const char* name, QWidget* parent)
{
    auto* const text = new QLabel(parent);
    text->setObjectName(QLatin1String(name));
    text->setTextFormat(Qt::PlainText);
    return text;
}

} // namespace

CLiveBar::CLiveBar(CLiveScanner& scanner, QWidget* parent)
    : QWidget(parent),
      m_scanner(scanner),
      m_startButton(new QPushButton(this)),
      m_paperText(MakeText("paperText", this)),
      m_rateText(MakeText("rateText", this)),
      m_failureText(MakeStrip("failureText", "background: #b3261e; color: white", this))
{
    m_startButton->setObjectName(QStringLiteral("startButton"));
    m_startButton->setAutoDefault(false);
    auto* const scannerText = new ElidedLabel(this);
    scannerText->setObjectName(QStringLiteral("scannerText"));
    scannerText->setText(QStringFromText(ScannerText(scanner.Identity())));
    // A long name must not keep the window from getting narrow.
    scannerText->setMinimumWidth(80);
    scannerText->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* const simulated = MakeStrip("simulatedText", "background: #ffe08a; color: black", this);
    simulated->setText(tr("Simulated scanner: these lines are computed, nothing is measured."));
    simulated->setVisible(scanner.IsSimulated());
    m_failureText->hide();

    auto* const row = new QHBoxLayout;
    row->setSpacing(14);
    row->addWidget(m_startButton);
    row->addWidget(scannerText, 1);
    row->addWidget(m_paperText);
    row->addWidget(m_rateText);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 4);
    column->setSpacing(4);
    column->addLayout(row);
    column->addWidget(simulated);
    column->addWidget(m_failureText);

    connect(m_startButton, &QPushButton::clicked, this, &CLiveBar::OnStartStop);
    connect(&scanner, &CLiveScanner::RunningChanged, this, &CLiveBar::ShowRunning);
    connect(&scanner, &CLiveScanner::LineTaken, this, &CLiveBar::ShowLine);
    // What is wrong with a value is told after this, and is of no interest after the next value.
    connect(&scanner, &CLiveScanner::ValuesChanged, this, [this] {
        if (m_scanner.IsRunning())
            m_failureText->hide();
    });
    connect(&scanner, &CLiveScanner::Failed, this, &CLiveBar::ShowFailure);
    ShowRunning();
}

void CLiveBar::OnStartStop()
{
    if (m_scanner.IsRunning()) {
        m_scanner.Stop();
    } else {
        m_failureText->hide();
        m_scanner.Start();
    }
}

void CLiveBar::ShowRunning()
{
    const bool runs = m_scanner.IsRunning();
    m_startButton->setText(runs ? tr("S&top") : tr("S&tart"));
    m_startButton->setIcon(
        style()->standardIcon(runs ? QStyle::SP_MediaStop : QStyle::SP_MediaPlay));
    m_startButton->setToolTip(
        runs ? tr("Take no more lines (Alt+T)") : tr("Take lines from the scanner (Alt+T)"));
    m_rateText->setEnabled(runs);
    if (!runs)
        m_rateText->setText(tr("stopped"));
}

void CLiveBar::ShowLine()
{
    const AcquiredLine& line = m_scanner.Line();
    m_paperText->setText(QStringFromText(PaperText(line.paper)));
    if (m_scanner.IsRunning())
        m_rateText->setText(
            QStringFromText(RateText(line.linesPerSecond, m_scanner.ShownPerSecond())));
}

void CLiveBar::ShowFailure(const QString& text)
{
    m_failureText->setText(text);
    m_failureText->show();
}

} // namespace vireo
