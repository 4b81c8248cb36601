#include "viewers/controls/CHeaderText_Dialog.h"

#include "viewers/controls/Fonts.h"
#include "viewers/controls/QtText.h"

#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace vireo {

CHeaderText_Dialog::CHeaderText_Dialog(std::string_view header, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Header"));
    auto* const text = new QPlainTextEdit(QStringFromText(header), this);
    text->setReadOnly(true);
    text->setPlaceholderText(tr("No Header Information available"));
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFont(FontOfHeight(kMonospacedFace, fontMetrics().ascent()));
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(buttons);
    resize(560, 480);
}

} // namespace vireo
