#include "viewers/controls/QtMessageSink.h"

#include "resources/StringTable.h"
#include "viewers/controls/QtText.h"

#include <QApplication>
#include <QMessageBox>

namespace vireo {

namespace {

QMessageBox::Icon BoxIcon(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Stop:
        return QMessageBox::Critical;
    case MessageIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

} // namespace

void QtMessageSink::ShowMessage(std::string_view text, std::string_view caption, MessageIcon icon)
{
    const QString title = caption.empty()
        ? QStringFromText(LoadStringResource(StringId::kApplicationTitle))
        : QString::fromUtf8(caption);
    QMessageBox box(BoxIcon(icon), title, QString::fromUtf8(text), QMessageBox::Ok,
        QApplication::activeWindow());
    // File names and headers may hold what looks like markup.
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.setWindowModality(Qt::ApplicationModal);
    box.exec();
}

} // namespace vireo
