#include "platform/Log.h"
#include "platform/Message.h"
#include "tests/FileSizeLimit.h"
#include "tests/TempFolder.h"
#include "tests/viewers/tonal/TonalFiles.h"
#include "viewers/controls/CScrollTextControl.h"
#include "viewers/controls/QtText.h"
#include "viewers/tonal/CTonalResolutionDialog.h"
#include "viewers/tonal/CTonalResolution_Control.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>

namespace vireo {
namespace {

class CTonalResolutionDialogTest : public testing::Test {
protected:
    CTonalResolutionDialogTest()
    {
        qputenv("XDG_CONFIG_HOME", settings.Path().string().c_str());
        qputenv("APPDATA", settings.Path().string().c_str());
        EXPECT_TRUE(log_Init("tonal", ".log", settings.Path()));
    }
    ~CTonalResolutionDialogTest() override { log_Close(); }

    void Open(const std::string& bytes) { OpenPath(file = folder.Write("t.con", bytes)); }
    void OpenPath(const std::filesystem::path& path)
    {
        dialog = std::make_unique<CTonalResolutionDialog>(path);
        dialog->show();
        QTest::qWait(1);
    }

    template <typename Widget>
    Widget& Find(const char* name) const
    {
        auto* const widget = dialog->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }
    QAbstractButton& Button(const char* name) const { return Find<QAbstractButton>(name); }
    void Click(const char* name) const
    {
        QTest::mouseClick(&Button(name), Qt::LeftButton, {}, {8, Button(name).height() / 2});
    }
    CTonalResolution_Control& Plot() const { return Find<CTonalResolution_Control>("plot"); }
    CScrollTextControl& Report() const { return Find<CScrollTextControl>("reportText"); }
    std::string Notice() const
    {
        const auto& label = Find<QLabel>("noticeText");
        return label.isVisible() ? label.text().toStdString() : std::string();
    }

    /// Confirms a name in the file dialog that comes next.
    void TypeInNextDialog(const std::filesystem::path& path)
    {
        QTimer::singleShot(0, [this, path] {
            auto* const asked = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(asked, nullptr);
            isLoadEnabledMeanwhile = Button("loadButton").isEnabled();
            auto* const name = asked->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            name->setText(QStringFromPath(path));
            QTest::keyClick(name, Qt::Key_Return);
        });
    }

    TempFolder folder;
    TempFolder settings;
    MessageRecorder messages;
    std::filesystem::path file;
    bool isLoadEnabledMeanwhile = false;
    std::unique_ptr<CTonalResolutionDialog> dialog;
};

TEST_F(CTonalResolutionDialogTest, ShowsAFile)
{
    Open(HandFile());
    EXPECT_EQ(dialog->windowTitle(), "Tonal Resolution");
    EXPECT_TRUE(Plot().isVisible());
    EXPECT_FALSE(Report().isVisible());
    EXPECT_EQ(Report().Lines().at(0), "Dynamic range");
    EXPECT_EQ(Report().Lines().size(), 16);
    EXPECT_EQ(Find<CScrollTextControl>("patchText").Lines().size(), 25);
    EXPECT_TRUE(Find<QLabel>("fileText").text().startsWith("t.con   By hand"));
    EXPECT_EQ(Notice(), "");
    EXPECT_TRUE(messages.Messages().empty());
}

TEST_F(CTonalResolutionDialogTest, ButtonsAndKeysChooseTheView)
{
    Open(HandFile());
    const std::pair<const char*, TonalView> buttons[] = {
        {"differenceButton", TonalView::Difference},
        {"dynamicRangeButton", TonalView::DynamicRange}, {"bestFitButton", TonalView::BestFit}};
    for (const auto& [button, view] : buttons) {
        Click(button);
        EXPECT_EQ(Plot().Content().view, view) << button;
        EXPECT_EQ(Button("redCheck").isEnabled(), view != TonalView::DynamicRange);
    }
    dialog->activateWindow();
    const std::pair<Qt::Key, const char*> keys[] = {{Qt::Key_2, "differenceButton"},
        {Qt::Key_3, "dynamicRangeButton"}, {Qt::Key_1, "bestFitButton"}};
    for (const auto& [key, button] : keys) {
        QTest::keyClick(dialog.get(), key, Qt::ControlModifier);
        EXPECT_TRUE(Button(button).isChecked()) << button;
    }
    QTest::keyClick(dialog.get(), Qt::Key_R, Qt::ControlModifier);
    EXPECT_TRUE(Report().isVisible());
    QTest::keyClick(dialog.get(), Qt::Key_2, Qt::ControlModifier);
    EXPECT_TRUE(Plot().isVisible()) << "a view asked for is shown";
    EXPECT_EQ(Plot().Content().view, TonalView::Difference);
}

TEST_F(CTonalResolutionDialogTest, SixCheckBoxesAreTheFlagsOfThePlot)
{
    Open(HandFile());
    const char* const checks[] = {
        "redCheck", "greenCheck", "blueCheck", "linesCheck", "crossesCheck", "namesCheck"};
    for (std::size_t flag = 0; flag < kTonalFlags; ++flag) {
        const QImage before = Plot().grab().toImage();
        Click(checks[flag]);
        EXPECT_FALSE(Plot().Content().flags[flag]) << checks[flag];
        EXPECT_NE(Plot().grab().toImage(), before) << checks[flag];
        Click(checks[flag]);
        EXPECT_TRUE(Plot().Content().flags[flag]) << checks[flag];
    }
}

TEST_F(CTonalResolutionDialogTest, TheReportTakesThePlaceOfThePlot)
{
    Open(HandFile());
    Click("reportCheck");
    EXPECT_FALSE(Plot().isVisible());
    EXPECT_TRUE(Report().isVisible());
    EXPECT_TRUE(Find<CScrollTextControl>("patchText").isVisible());
    Click("reportCheck");
    EXPECT_TRUE(Plot().isVisible());
    EXPECT_FALSE(Report().isVisible());
}

TEST_F(CTonalResolutionDialogTest, CopiesWhatIsShown)
{
    Open(HandFile());
    Click("copyButton");
    EXPECT_EQ(QApplication::clipboard()->image().size(), Plot().Picture(2.0).size());
    Click("reportCheck");
    Click("copyButton");
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith("Dynamic range\n   IT8"));
    auto& table = Find<CScrollTextControl>("patchText");
    table.setFocus();
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QApplication::clipboard()->text().contains("GS23"));
}

TEST_F(CTonalResolutionDialogTest, AFaultyFileIsRewrittenAndTheDialogSaysSo)
{
    Open(SmallFaultyFile());
    EXPECT_NE(Notice().find("kept as \"t.con_Original\""), std::string::npos) << Notice();
    EXPECT_EQ(TempFolder::Read(folder.Path() / "t.con_Original"), SmallFaultyFile());
    EXPECT_NE(TempFolder::Read(file), SmallFaultyFile());
    const std::string log = TempFolder::Read(settings.Path() / "tonal.log");
    EXPECT_NE(log.find("t.con_Original"), std::string::npos) << log;
    EXPECT_TRUE(messages.Messages().empty()) << "it can be shown";
    OpenPath(file);
    EXPECT_EQ(Notice(), "");
}

TEST_F(CTonalResolutionDialogTest, ADeletedFileGivesOneMessage)
{
    Open(TonalFileOf("ScannerName=Default\n"));
    EXPECT_FALSE(std::filesystem::exists(file));
    ASSERT_EQ(messages.Messages().size(), 1U);
    EXPECT_NE(messages.Messages()[0].text.find("has been deleted"), std::string::npos);
    EXPECT_NE(Notice().find("has been deleted"), std::string::npos);
    EXPECT_EQ(Report().Lines(), QStringList{"No data to display."});
    EXPECT_FALSE(Button("saveButton").isEnabled());
}

TEST_F(CTonalResolutionDialogTest, WhatCannotBeShownGivesOneMessage)
{
    Open("[Noise Test]\n");
    ASSERT_EQ(messages.Messages().size(), 1U);
    EXPECT_NE(messages.Messages()[0].text.find("Not a tonal resolution file"), std::string::npos);
    EXPECT_FALSE(Plot().Content().HasData());
    OpenPath({});
    EXPECT_EQ(messages.Messages().size(), 1U) << "no file is no failure";
}

TEST_F(CTonalResolutionDialogTest, LoadsAndSaves)
{
    Open(HandFile());
    const auto other = folder.Write("other.con", TonalFileOf("ScannerName=Other\n"));
    TypeInNextDialog(other);
    Click("loadButton");
    EXPECT_FALSE(isLoadEnabledMeanwhile);
    EXPECT_TRUE(Button("loadButton").isEnabled());
    EXPECT_TRUE(Find<QLabel>("fileText").text().startsWith("other.con   Other"));
    EXPECT_FALSE(Plot().Content().isLoading);

    TypeInNextDialog(folder.Path() / "saved");
    Click("saveButton");
    const std::string saved = TempFolder::Read(folder.Path() / "saved.con");
    EXPECT_TRUE(saved.starts_with("[Tonal Resolution]\nVersion=\t0\nScannerName=\tOther\n"));
    EXPECT_TRUE(Find<QLabel>("fileText").text().startsWith("saved.con"));
    EXPECT_EQ(Notice(), "");
}

#ifndef _WIN32
TEST_F(CTonalResolutionDialogTest, AFileThatCannotBeSavedIsNoBox)
{
    Open(HandFile());
    const FileSizeLimit limit(100);
    TypeInNextDialog(folder.Path() / "x.con");
    Click("saveButton");
    EXPECT_NE(Notice().find("not saved"), std::string::npos) << Notice();
    EXPECT_TRUE(messages.Messages().empty());
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "x.con"));
}
#endif

} // namespace
} // namespace vireo
