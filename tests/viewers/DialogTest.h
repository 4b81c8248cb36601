#pragma once

#include "platform/Log.h"
#include "platform/Message.h"
#include "tests/TempFolder.h"
#include "tests/viewers/Waiting.h"
#include "viewers/controls/QtText.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vireo {

/// Keeps the settings and the log of whoever runs the tests as they are: both lie in a folder of
/// the test's own.
class OwnSettings : public TempFolder {
public:
    OwnSettings()
    {
        for (const char* name : {"XDG_CONFIG_HOME", "XDG_STATE_HOME", "APPDATA", "LOCALAPPDATA"})
            qputenv(name, Path().string().c_str());
        EXPECT_TRUE(log_Init("Test", ".log", Path()));
    }
    OwnSettings(const OwnSettings&) = delete;
    OwnSettings& operator=(const OwnSettings&) = delete;
    ~OwnSettings() { log_Close(); }

    std::string Log() const { return Read(Path() / "Test.log"); }
};

/// Calls a function with the modal window that opens next, as soon as it takes events; it has to be
/// of this kind and to be closed by the function.
template <typename Window, typename Act>
void InNextWindow(Act act)
{
    QTimer::singleShot(0, [act]() mutable {
        auto* const window = qobject_cast<Window*>(QApplication::activeModalWidget());
        ASSERT_NE(window, nullptr);
        act(*window);
    });
}

/// Types a name into the file dialog that opens next, and confirms it; `before` sees the dialog
/// first.
inline void NameInNextFileDialog(
    const std::filesystem::path& file, const std::function<void(QFileDialog&)>& before = {})
{
    InNextWindow<QFileDialog>([file, before](QFileDialog& dialog) {
        if (before)
            before(dialog);
        auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        // Typing takes the selection from a file that is proposed; here the box has no focus.
        dialog.findChild<QAbstractItemView*>(QStringLiteral("listView"))->clearSelection();
        name->setText(QStringFromPath(file));
        QTest::keyClick(name, Qt::Key_Return);
    });
}

/// What tests of a dialog have in common: the dialog, the messages that it shows, and the hands and
/// eyes of a person. Widgets are known by their object names; a name that there is not fails the
/// test.
template <typename Dialog = QDialog>
class DialogTest : public testing::Test {
protected:
    /// Dialogs end before what a test has lent them.
    void TearDown() override { dialog.reset(); }

    /// Shows a dialog in place of the one before, in its own size unless one is given.
    void Show(std::unique_ptr<Dialog> opened, QSize size = {})
    {
        dialog = std::move(opened);
        if (size.isValid())
            dialog->resize(size);
        dialog->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
    }

    template <typename Widget>
    Widget& Find(const char* name) const
    {
        auto* const widget = dialog->template findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }
    QAbstractButton& Button(const char* name) const { return Find<QAbstractButton>(name); }
    std::string Text(const char* label) const { return Find<QLabel>(label).text().toStdString(); }
    bool IsVisible(const char* name) const { return Find<QWidget>(name).isVisible(); }

    /// Clicks at the left end, where radio buttons and check boxes have their marks.
    void Click(const char* button) const
    {
        QAbstractButton& clicked = Button(button);
        QTest::mouseClick(&clicked, Qt::LeftButton, {}, QPoint(8, clicked.height() / 2));
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(dialog.get(), key, modifiers);
    }
    /// Types a text in place of the one in a field, and Enter.
    template <typename Field>
    void Type(const char* field, const QString& text) const
    {
        auto& edit = Find<Field>(field);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, text);
        QTest::keyClick(&edit, Qt::Key_Return);
    }

    /// Exactly one message has come since the last look, and it contains this.
    void ExpectMessage(std::string_view part) { ExpectMessages({part}); }
    /// Exactly these have come since the last look, in this order.
    void ExpectMessages(std::initializer_list<std::string_view> parts)
    {
        const std::vector<MessageRecorder::Message> shown = messages.Messages();
        messages.Clear();
        EXPECT_EQ(shown.size(), parts.size());
        for (std::size_t i = 0; i < std::min(shown.size(), parts.size()); ++i)
            EXPECT_NE(shown[i].text.find(parts.begin()[i]), std::string::npos) << shown[i].text;
    }

    TempFolder folder;
    OwnSettings settings;
    MessageRecorder messages;
    std::unique_ptr<Dialog> dialog;
};

} // namespace vireo
