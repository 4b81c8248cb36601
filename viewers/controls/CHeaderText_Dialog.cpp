#include "viewers/controls/CHeaderText_Dialog.h"

#include "platform/Message.h"
#include "platform/PositionalFile.h"
#include "viewers/controls/FileDialogs.h"
#include "viewers/controls/Fonts.h"
#include "viewers/controls/HeaderTable.h"
#include "viewers/controls/QtText.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>

namespace vireo {

CHeaderText_Dialog::CHeaderText_Dialog(
    std::string_view header, QWidget* parent, const std::vector<HeaderRow>& rows)
    : QDialog(parent),
      m_text(new QPlainTextEdit(QStringFromText(header), this))
{
    setWindowTitle(tr("Header"));
    m_text->setReadOnly(true);
    m_text->setPlaceholderText(tr("No Header Information available"));
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFont(FontOfHeight(kMonospacedFace, fontMetrics().ascent()));
    auto* const parts = new QSplitter(this);
    parts->setChildrenCollapsible(false);
    parts->addWidget(m_text);
    if (!rows.empty()) {
        m_table = new QTableWidget(parts);
        FillHeaderTable(*m_table, rows);
        parts->addWidget(m_table);
        parts->setStretchFactor(1, 1);
        parts->setSizes({360, 600});
    }
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* const copy = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    copy->setObjectName(QStringLiteral("copyButton"));
    copy->setAutoDefault(false);
    copy->setToolTip(tr("Copy the selected rows of the table, else the whole header"));
    connect(copy, &QPushButton::clicked, this, &CHeaderText_Dialog::OnCopy);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(parts);
    layout->addWidget(buttons);
    resize(rows.empty() ? QSize(560, 480) : QSize(980, 520));
}

void CHeaderText_Dialog::OnCopy()
{
    const bool hasRows = m_table && !m_table->selectedItems().isEmpty();
    QApplication::clipboard()->setText(hasRows ? TableText(*m_table) : m_text->toPlainText());
}

void ShowFileHeader(const std::filesystem::path& file, QWidget* parent)
{
    // It may have gone since it was shown.
    if (const FileStatus status = PositionalFile().Open(file); status != FileStatus::Ok)
        return TellCannotOpen(file, Describe(status));
    const HeaderView view = ReadHeaderView(file);
    if (view.refusal.empty())
        CHeaderText_Dialog(view.text, parent, view.rows).exec();
    else
        ShowMessage(view.refusal);
}

} // namespace vireo
