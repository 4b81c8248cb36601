#include "viewers/controls/QtMessageSink.h"

#include "resources/StringTable.h"
#include "viewers/controls/QtText.h"

#include <QApplication>
#include <QMessageBox>

#include <algorithm>

namespace vireo {

namespace {

/// A word of this many characters makes a box as wide as the system's own; a longer one, which a
/// path may be, would make it as wide as the screen.
constexpr qsizetype kLongestWord = 90;

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

/// The start window is drawn with no opacity while it is out of sight, in a corner of the screen.
bool IsInSight(const QWidget* window)
{
    return window && window->isVisible() && window->windowOpacity() > 0.0;
}

/// The window that a message belongs to: the active one, or a viewer that is not active yet.
/// Without any the message comes in the middle of the screen.
QWidget* WindowOfUser()
{
    QWidget* const active = QApplication::activeWindow();
    if (IsInSight(active))
        return active;
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto dialog = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
        return qobject_cast<const QDialog*>(window) && IsInSight(window);
    });
    return dialog == windows.end() ? nullptr : *dialog;
}

} // namespace

void QtMessageSink::ShowMessage(std::string_view text, std::string_view caption, MessageIcon icon)
{
    const QString title = caption.empty()
        ? QStringFromText(LoadStringResource(StringId::kApplicationTitle))
        : QString::fromUtf8(caption);
    QMessageBox box(BoxIcon(icon), title,
        WithLongWordsBroken(QString::fromUtf8(text), kLongestWord), QMessageBox::Ok,
        WindowOfUser());
    // File names and headers may hold what looks like markup.
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.setWindowModality(Qt::ApplicationModal);
    box.exec();
}

} // namespace vireo
