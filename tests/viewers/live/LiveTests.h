#pragma once

#include "platform/Log.h"
#include "platform/Message.h"
#include "scanner/LineAcquisition.h"
#include "tests/TempFolder.h"
#include "tests/scanner/TestScanners.h"
#include "tests/scanner/WatchedScanner.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace vireo {

/// What the tests of the live dialogs have in common: a simulated scanner that the test can make
/// fail, and the hands of a person.
class LiveDialogTest : public testing::Test {
protected:
    LiveDialogTest()
    {
        // Settings and the log of whoever runs the tests stay as they are.
        for (const char* name : {"XDG_CONFIG_HOME", "XDG_STATE_HOME", "APPDATA", "LOCALAPPDATA"})
            qputenv(name, settings.Path().string().c_str());
        log_Init("Test", ".log", settings.Path());
        setup.linesPerSecond = 400.0;
    }
    ~LiveDialogTest() override { log_Close(); }

    OpenScanner Scanner()
    {
        OpenScanner opened;
        EXPECT_FALSE(OpenDevice(std::make_unique<WatchedScanner>(watch, setup), opened));
        return opened;
    }
    static bool Becomes(const std::function<bool()>& condition)
    {
        return QTest::qWaitFor(condition, 30'000);
    }

    template <typename Widget>
    Widget& Find(const char* name) const
    {
        auto* const widget = dialog->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }
    std::string Text(const char* label) const { return Find<QLabel>(label).text().toStdString(); }
    void Click(const char* name) const
    {
        auto& button = Find<QAbstractButton>(name);
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
    }
    /// Presses the keys of a command and saves under a name in the file dialog that comes.
    void SaveAs(const std::filesystem::path& file)
    {
        QTimer::singleShot(0, [&file] {
            auto* const box = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            auto* const name = box->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            name->setText(QString::fromStdString(Utf8FromPath(file)));
            QTest::keyClick(name, Qt::Key_Return);
        });
        Click("saveButton");
    }

    TempFolder folder;
    TempFolder settings;
    MessageRecorder messages;
    Watch watch;
    SimulatedSetup setup;
    std::unique_ptr<QDialog> dialog;
};

} // namespace vireo
