#include "viewers/controls/CAboutDlg.h"

#include "platform/ProgramInfo.h"
#include "resources/StringTable.h"
#include "viewers/controls/QtText.h"
#include "viewers/controls/Resources.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace vireo {

namespace {

QLabel* AddText(QVBoxLayout& column, const char* name, const QString& text)
{
    auto* label = new QLabel(text);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    // To be copied into a report.
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    column.addWidget(label);
    return label;
}

} // namespace

CAboutDlg::CAboutDlg(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(QStringLiteral("About Vireo"));
    setWindowIcon(ApplicationIcon());

    const ProgramInfo info = OwnProgramInfo();
    const QString release = QStringFromText(LoadStringResource(StringId::kRelease))
        + QLatin1Char(' ') + QStringFromText(info.productVersion);

    auto* texts = new QVBoxLayout;
    QLabel* description = AddText(*texts, "FileDescription", QStringFromText(info.fileDescription));
    QFont heading = description->font();
    heading.setBold(true);
    description->setFont(heading);
    AddText(*texts, "FileVersion", QStringFromText(info.fileVersion));
    AddText(*texts, "Release", release);
    texts->addStretch();

    auto* icon = new QLabel;
    constexpr int kIconSize = 64;
    icon->setPixmap(ApplicationIcon().pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
    icon->setAlignment(Qt::AlignTop);

    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(icon);
    row->addLayout(texts, 1);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* page = new QVBoxLayout(this);
    page->addLayout(row);
    page->addWidget(buttons);
    // As large as its texts, and no larger.
    page->setSizeConstraint(QLayout::SetFixedSize);
}

} // namespace vireo
