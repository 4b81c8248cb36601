#include "viewers/oscilloscope/CSelectionList_Dialog.h"

#include "viewers/controls/QtText.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace vireo {

CSelectionList_Dialog::CSelectionList_Dialog(
    const std::vector<std::string>& texts, int selected, QWidget* parent)
    : QDialog(parent),
      m_list(new QListWidget(this))
{
    setWindowTitle(tr("Select"));
    for (const std::string& text : texts)
        m_list->addItem(QStringFromText(text));
    m_list->setCurrentRow(selected);
    m_list->setAccessibleName(tr("Files of the folder"));

    auto* const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setEnabled(!texts.empty());
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    layout->addWidget(buttons);

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    // A double click. Enter reaches OK as the default button, so it must not accept twice.
    connect(m_list, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
}

std::optional<int> CSelectionList_Dialog::Selected() const
{
    const int row = m_list->currentRow();
    return row < 0 ? std::nullopt : std::optional(row);
}

} // namespace vireo
