#include "viewers/controls/CVerdict_Dialog.h"

#include "viewers/controls/HeaderTable.h"
#include "viewers/controls/QtText.h"
#include "viewers/controls/VerdictIcon.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace vireo {

namespace {

QString HeadingOf(const LimitsAnswer& answer, const std::filesystem::path& limits)
{
    QString text = QObject::tr("%1. Limits: %2")
                       .arg(QString::fromStdString(ViewOf(answer).text), QStringFromPath(limits));
    if (!answer.failure.empty())
        text += QLatin1Char('\n') + QString::fromStdString(answer.failure);
    if (answer.verdict && answer.verdict->failedCount > answer.verdict->failed.size())
        text += QObject::tr("\nThe first %1 are listed.").arg(answer.verdict->failed.size());
    return text;
}

} // namespace

CVerdict_Dialog::CVerdict_Dialog(
    const LimitsAnswer& answer, const std::filesystem::path& limits, QWidget* parent)
    : QDialog(parent),
      m_table(new QTableWidget(this))
{
    setWindowTitle(tr("Verdict"));
    auto* const heading = new QLabel(HeadingOf(answer, limits), this);
    heading->setObjectName(QStringLiteral("verdictHeading"));
    heading->setTextFormat(Qt::PlainText);
    heading->setWordWrap(true);
    Fill(answer.verdict.value_or(Verdict()));
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* const copy = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    copy->setObjectName(QStringLiteral("copyButton"));
    copy->setAutoDefault(false);
    copy->setEnabled(m_table->rowCount() > 0);
    copy->setToolTip(tr("Copy the selected rows of the table, or all"));
    connect(copy, &QPushButton::clicked, this, &CVerdict_Dialog::OnCopy);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addWidget(m_table);
    layout->addWidget(buttons);
    m_table->setVisible(m_table->rowCount() > 0);
    resize(m_table->rowCount() > 0 ? QSize(720, 360) : QSize(480, 120));
}

void CVerdict_Dialog::Fill(const Verdict& verdict)
{
    m_table->setColumnCount(4);
    m_table->setHorizontalHeaderLabels({tr("Figure"), tr("Value"), tr("Limit"), tr("Line")});
    m_table->horizontalHeaderItem(3)->setToolTip(tr("Of the limits file"));
    m_table->setRowCount(static_cast<int>(verdict.failed.size()));
    m_table->verticalHeader()->hide();
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setAlternatingRowColors(true);
    m_table->setWordWrap(false);
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const FailedLimit& failure = verdict.failed[static_cast<std::size_t>(row)];
        int column = 0;
        for (const std::string& text :
            {failure.name, ValueText(failure.value), failure.limit, std::to_string(failure.line)})
            m_table->setItem(
                row, column++, new QTableWidgetItem(QString::fromStdString(text).left(1000)));
    }
    // A value of a damaged file may be of any length.
    m_table->horizontalHeader()->setMaximumSectionSize(300);
    m_table->resizeColumnsToContents();
    m_table->horizontalHeader()->setMaximumSectionSize(-1);
    m_table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_table->resizeRowsToContents();
}

void CVerdict_Dialog::OnCopy()
{
    QApplication::clipboard()->setText(TableText(*m_table));
}

} // namespace vireo
