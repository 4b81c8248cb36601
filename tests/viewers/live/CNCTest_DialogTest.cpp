#include "tests/viewers/AltLetters.h"
#include "tests/viewers/Waiting.h"
#include "tests/viewers/live/LiveTests.h"
#include "viewers/live/CNCTest_Dialog.h"
#include "viewers/noise/CNoiseTestControl.h"

#include <QScrollBar>

namespace vireo {
namespace {

/// The live check; the dialog's use as a viewer of files is tested with the noise viewer's.
class CNCTest_DialogTest : public LiveDialogTest<CNCTest_Dialog> {
protected:
    /// `gain`: how far the second camera's green gain is off.
    void Open(int gain = 0)
    {
        OpenScanner scanner = Scanner();
        const SettingPlace place{1, 1};
        const int adjusted = scanner.values.ValueOf(ScannerSetting::Gain, place).value_or(0);
        EXPECT_EQ(scanner.device->SetValue(ScannerSetting::Gain, place, adjusted + gain),
            ScannerError::Ok);
        Show(std::make_unique<CNCTest_Dialog>(std::move(scanner)));
        // The first lines are not corrected yet.
        ASSERT_TRUE(Becomes([this] {
            return Record().m_iLineLength == 21624 && Button("correctedCheck").isChecked();
        }));
        messages.Clear(); // That the station has no limit.
    }
    const NoiseData& Record() const
    {
        static const NoiseData kBeforeTheFirstLine;
        const NoiseData* const shown = Find<CNoiseTestControl>("plot").Content().data;
        return shown ? *shown : kBeforeTheFirstLine;
    }
    QLabel& Verdict() const { return Find<QLabel>("verdictText"); }
    QColor VerdictColour() const
    {
        return Verdict().grab().toImage().pixelColor(3, Verdict().height() / 2);
    }
};

TEST_F(CNCTest_DialogTest, AGoodScannerPasses)
{
    Open();
    ASSERT_TRUE(Becomes([this] { return Text("verdictText") == "Pass"; }));
    EXPECT_GT(VerdictColour().green(), VerdictColour().red() + 50);
    EXPECT_EQ(Text("limitText"), " Limit = 5 %");
    EXPECT_EQ(Text("averageText"), "Avg = 80%");
    EXPECT_TRUE(IsVisible("simulatedText"));
    EXPECT_EQ(Record().m_ScannerName, "SimulatedScanner");
    EXPECT_DOUBLE_EQ(Record().m_dWidthFactor, 8.5);
    ExpectDifferentLetters(*dialog);
    for (const QAction* command : dialog->findChildren<QAction*>()) {
        EXPECT_TRUE(command->isEnabled() || command->text() != "&Save As...")
            << "a line without a file can be saved";
    }
}

TEST_F(CNCTest_DialogTest, ACameraThatIsOffFails)
{
    Open(30);
    ASSERT_TRUE(Becomes([this] { return Text("verdictText").rfind("Fail\nGreen", 0) == 0; }));
    EXPECT_GT(VerdictColour().red(), VerdictColour().green() + 50);
}

TEST_F(CNCTest_DialogTest, WithoutASheetNothingIsJudged)
{
    setup.sheetLines = 0;
    Open();
    ASSERT_TRUE(Becomes([this] { return Text("verdictText") == "No sheet"; }));
    EXPECT_EQ(Text("paperText"), "No sheet");
}

TEST_F(CNCTest_DialogTest, TheViewStaysWhileLinesCome)
{
    Open();
    auto& plot = Find<CNoiseTestControl>("plot");
    QTest::mouseClick(&plot, Qt::LeftButton, {}, plot.rect().center());
    const NoiseView view = plot.View();
    EXPECT_EQ(view.zoom, 2);
    const std::string before = Text("fileText");
    ASSERT_TRUE(Becomes([&] { return Text("fileText") != before; }));
    EXPECT_EQ(plot.View(), view);
    QTest::mouseMove(&plot, plot.rect().center());
    EXPECT_NE(Text("positionText"), "0.00");
    Click("blueButton");
    EXPECT_TRUE(Becomes([&] { return Record().m_shown == ShownColour::Blue; }));
    Click("zoomAllButton");
    EXPECT_EQ(plot.View(), NoiseView::Whole(21624));
}

TEST_F(CNCTest_DialogTest, WhatIsSavedTheViewerReads)
{
    Open();
    const auto file = folder.Path() / "live.con";
    const auto shown = [this](
                           ShownColour colour) { return Record().PlaneOf(colour)->trace.samples; };
    // Also while lines come: the one on view when the question came is saved.
    SaveAs(file);
    NoiseData data;
    ASSERT_EQ(data.Read(file), NoiseResult::Ok);
    Click("startButton");
    EXPECT_TRUE(data.m_bHasColour);
    EXPECT_EQ(data.m_ScannerID, "SIM1");
    EXPECT_EQ(data.m_iNoiseLimit, 5);
    EXPECT_DOUBLE_EQ(data.m_dWidthFactor, 8.5);
    EXPECT_EQ(data.PlaneOf(ShownColour::Red)->trace.samples.size(), shown(ShownColour::Red).size());
    // The line that was being taken may still come.
    EXPECT_TRUE(StandsStill([&] { return shown(ShownColour::Red); }));
    const auto second = folder.Path() / "second.con";
    SaveAs(second);
    ASSERT_EQ(data.Read(second), NoiseResult::Ok);
    for (const ShownColour colour : {ShownColour::Red, ShownColour::Green, ShownColour::Blue})
        EXPECT_EQ(data.PlaneOf(colour)->trace.samples, shown(colour));
    EXPECT_TRUE(messages.Messages().empty());
}

TEST_F(CNCTest_DialogTest, LeavesTheScannersCorrectionAsItWas)
{
    SimulatedSetup direct = FastSimulation();
    struct Kept : WatchedScanner {
        Kept(Watch& seen, const SimulatedSetup& kind, int& last)
            : WatchedScanner(seen, kind),
              correction(last)
        {
        }
        ScannerError SetValue(ScannerSetting setting, SettingPlace place, int value) override
        {
            if (setting == ScannerSetting::Correction)
                correction = value;
            return WatchedScanner::SetValue(setting, place, value);
        }
        int& correction;
    };
    int correction = -1;
    OpenScanner opened;
    ASSERT_FALSE(OpenDevice(std::make_unique<Kept>(watch, direct, correction), opened));
    dialog = std::make_unique<CNCTest_Dialog>(std::move(opened));
    ASSERT_TRUE(Becomes([this] { return Button("correctedCheck").isChecked(); }));
    dialog.reset();
    EXPECT_EQ(correction, 0);
    EXPECT_EQ(watch.closes, 1);
}

} // namespace
} // namespace vireo
