#include "tests/FileSizeLimit.h"
#include "tests/viewers/DialogTest.h"
#include "tests/viewers/tonal/TonalFiles.h"
#include "viewers/controls/CScrollTextControl.h"
#include "viewers/controls/QtText.h"
#include "viewers/tonal/CTonalResolutionDialog.h"
#include "viewers/tonal/CTonalResolution_Control.h"

#include <QClipboard>
#include <QImage>

namespace vireo {
namespace {

class CTonalResolutionDialogTest : public DialogTest<CTonalResolutionDialog> {
protected:
    void Open(const std::string& bytes) { OpenPath(file = folder.Write("t.con", bytes)); }
    void OpenPath(const std::filesystem::path& path)
    {
        Show(std::make_unique<CTonalResolutionDialog>(path));
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
        NameInNextFileDialog(path,
            [this](QFileDialog&) { isLoadEnabledMeanwhile = Button("loadButton").isEnabled(); });
    }

    std::filesystem::path file;
    bool isLoadEnabledMeanwhile = false;
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
        Key(key, Qt::ControlModifier);
        EXPECT_TRUE(Button(button).isChecked()) << button;
    }
    Key(Qt::Key_R, Qt::ControlModifier);
    EXPECT_TRUE(Report().isVisible());
    Key(Qt::Key_2, Qt::ControlModifier);
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
    EXPECT_NE(settings.Log().find("t.con_Original"), std::string::npos) << settings.Log();
    EXPECT_TRUE(messages.Messages().empty()) << "it can be shown";
    OpenPath(file);
    EXPECT_EQ(Notice(), "");
}

TEST_F(CTonalResolutionDialogTest, ADeletedFileGivesOneMessage)
{
    Open(TonalFileOf("ScannerName=Default\n"));
    EXPECT_FALSE(std::filesystem::exists(file));
    ExpectMessage("has been deleted");
    EXPECT_NE(Notice().find("has been deleted"), std::string::npos);
    EXPECT_EQ(Report().Lines(), QStringList{"No data to display."});
    EXPECT_FALSE(Button("saveButton").isEnabled());
}

TEST_F(CTonalResolutionDialogTest, WhatCannotBeShownGivesOneMessage)
{
    Open("[Noise Test]\n");
    ExpectMessage("Not a tonal resolution file");
    EXPECT_FALSE(Plot().Content().HasData());
    OpenPath({});
    EXPECT_TRUE(messages.Messages().empty()) << "no file is no failure";
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
