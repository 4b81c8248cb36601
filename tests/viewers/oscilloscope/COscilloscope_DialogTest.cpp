#include "tests/viewers/oscilloscope/OscilloscopeDialogTest.h"
#include "viewers/oscilloscope/PauseSpinBox.h"

#include <QScrollBar>

namespace vireo {
namespace {

TEST_F(COscilloscope_DialogTest, AColourFileOffersItsPlanesAndCameras)
{
    OscilloscopeFile file;
    file.isCorrected = true;
    file.cameraPixels = {200, 9, 10};
    ASSERT_TRUE(Open(file));
    EXPECT_EQ(dialog->windowTitle(), "Software Oscilloscope");
    EXPECT_TRUE(messages.Messages().empty());
    for (const char* button : {"redButton", "greenButton", "blueButton"})
        EXPECT_TRUE(IsVisible(button) && Button(button).isEnabled()) << button;
    EXPECT_TRUE(Button("blueButton").isChecked()) << "corrected colour data begin with blue";
    EXPECT_EQ(Overview().shown, ShownColour::Blue);
    EXPECT_EQ(OfferedCameras(), "AC");
    EXPECT_TRUE(Button("correctedCheck").isChecked());
    EXPECT_FALSE(Button("uncorrectedCheck").isChecked());
    EXPECT_FALSE(Button("correctedCheck").isEnabled());
    EXPECT_FALSE(IsVisible("loadButton"));
    EXPECT_FALSE(IsVisible("folderGroup"));
}

TEST_F(COscilloscope_DialogTest, ItsStartIsLogged)
{
    ASSERT_TRUE(Open(OscilloscopeFile()));
    const std::string log = settings.Log();
    std::size_t from = 0;
    for (const std::string step :
        {"OnInitDialog() \n", "OnInitDialog() 6\n", "bool COscilloscope_Dialog::ReadFile()\n",
            "a.con\n", "OnInitDialog() 7\n", "OnInitDialog() 8\n", "OnInitDialog() 9\n"}) {
        from = log.find(step, from);
        EXPECT_NE(from, std::string::npos) << step << log;
    }
}

TEST_F(COscilloscope_DialogTest, AGrayFileHasOneColourNamedGray)
{
    OscilloscopeFile file;
    file.color = TestFileHeader::kColorGray;
    ASSERT_TRUE(Open(file));
    EXPECT_EQ(Button("greenButton").text(), "Gray");
    EXPECT_TRUE(Button("greenButton").isChecked());
    for (const char* button : {"redButton", "blueButton", "allButton"})
        EXPECT_FALSE(IsVisible(button)) << button;
    Click("greenButton");
    EXPECT_EQ(Overview().shown, ShownColour::Gray);
}

TEST_F(COscilloscope_DialogTest, AChosenColourIsShownByEveryPlot)
{
    ASSERT_TRUE(Open(OscilloscopeFile()));
    const std::pair<const char*, ShownColour> choices[] = {{"redButton", ShownColour::Red},
        {"allButton", ShownColour::All}, {"blueButton", ShownColour::Blue},
        {"greenButton", ShownColour::Green}};
    for (const auto& [button, shown] : choices) {
        Click(button);
        for (const char* plot : {"overviewPlot", "leftPlot", "rightPlot"})
            EXPECT_EQ(Plot(plot).Content().shown, shown) << button << " " << plot;
    }
}

TEST_F(COscilloscope_DialogTest, BeforeTheFirstPaintNothingHappens)
{
    dialog = std::make_unique<COscilloscope_Dialog>(
        folder.Write("a.con", OscilloscopeFile().Bytes()), false, host);
    const ShownColour before = Overview().shown;
    Button("redButton").click();
    Button("cameraBButton").click();
    Button("lightProfileButton").click();
    EXPECT_EQ(Overview().shown, before);
    EXPECT_EQ(Title("leftPlot").substr(0, 15), "Camera A, first");
}

TEST_F(COscilloscope_DialogTest, EachMissingItemIsTold)
{
    TestFileHeader header;
    header.WriteOscilloscopeTag();
    header.WriteCameraCount(2);
    header.WriteCameraPixels(1, 40);
    header.FixUpDataOffset();
    ASSERT_TRUE(Open(folder.Write("bare.con", header.Text() + std::string(100, 'x'))));
    std::vector<std::string> told;
    for (const auto& message : messages.Messages())
        told.push_back(message.text);
    const std::vector<std::string> expected{"Missing Information:\nIs Color or B/W Scanner",
        "Missing Information:\nColor", "Missing Information:\nCamera Used",
        "Missing Information:\nIs Corrected/Uncorrected", "Missing Information:\nDate",
        "Missing Information:\nTime", "Missing Information:\nScanner Name",
        "Missing Information:\nGet Camera A Pix", "Missing Information:\nMagnification",
        "Missing Information:\nCenter Lines"};
    EXPECT_EQ(told, expected);
    EXPECT_EQ(OfferedCameras(), "B");
    EXPECT_TRUE(Button("cameraBButton").isChecked());
}

TEST_F(COscilloscope_DialogTest, FilesOfOtherKindsGoToTheirViewers)
{
    EXPECT_FALSE(Open(folder.Write("n.con", "[Noise Test]\nDataPointer=1\n")));
    EXPECT_TRUE(host.m_bParentWasHidden);
    EXPECT_FALSE(Open(folder.Write("l.con", "[G3 Light Profile]\n[Light Profile]\n")));
    const std::vector<std::string> expected{"CNCTest_Dialog n.con", "CView_LPF_Dialog l.con"};
    EXPECT_EQ(host.m_opened, expected);
    EXPECT_TRUE(messages.Messages().empty());
}

struct UnreadableCase {
    const char* name;
    const char* bytes; ///< Null for a file that is not there.
    const char* firstMessage;
    std::size_t messages;
};

class UnreadableFileTest : public COscilloscope_DialogTest,
                           public testing::WithParamInterface<UnreadableCase> { };

TEST_P(UnreadableFileTest, IsToldAndLeavesAnEmptyPlot)
{
    const auto path = folder.Path() / "a.con";
    if (GetParam().bytes)
        folder.Write("a.con", GetParam().bytes);
    ASSERT_TRUE(Open(path));
    ASSERT_EQ(messages.Messages().size(), GetParam().messages);
    EXPECT_NE(messages.Messages()[0].text.find(GetParam().firstMessage), std::string::npos)
        << messages.Messages()[0].text;
    EXPECT_EQ(OfferedCameras(), "");
    EXPECT_EQ(Overview().line->Length(), 0);
    for (const char* button : {"cameraAButton", "redButton", "scanWidthButton", "zoomAllButton"})
        Button(button).click();
}

INSTANTIATE_TEST_SUITE_P(All, UnreadableFileTest,
    testing::Values(UnreadableCase{"Missing", nullptr, "a.con\n", 1},
        UnreadableCase{"Empty", "", "The file is empty", 1},
        UnreadableCase{"OtherKind", "[StarTest]\nDataPointer=3\n", "Not an oscilloscope file", 1},
        UnreadableCase{
            "DataBehindTheEnd", "[Oscilloscope]\nDataPointer=      9999\n", "a.con\n", 1}),
    [](const auto& test) { return test.param.name; });

TEST_F(COscilloscope_DialogTest, AnotherCameraRefitsTheDetailViews)
{
    ASSERT_TRUE(Open(OscilloscopeFile()));
    Plot("leftPlot").SetView({20.0, 10.0});
    Click("cameraCButton");
    EXPECT_EQ(Plot("leftPlot").View().first, 400.0);
    EXPECT_EQ(Plot("rightPlot").View().End(), 600.0);
    EXPECT_EQ(Plot("overviewPlot").View(), (ProfileView{0.0, 600.0}));
    EXPECT_EQ(
        Find<QScrollBar>("rightScroll").value() + Find<QScrollBar>("rightScroll").pageStep(), 600);
    PressKey(Qt::Key_B);
    EXPECT_TRUE(Button("cameraBButton").isChecked());
    EXPECT_EQ(Plot("leftPlot").View().first, 200.0);
    PressKey(Qt::Key_H);
    EXPECT_EQ(Plot("leftPlot").View().first, 200.0) << "there is no camera H";
}

TEST_F(COscilloscope_DialogTest, DetailModesShowTheirFigures)
{
    ASSERT_TRUE(Open(OscilloscopeFile()));
    Click("cameraCButton");
    Click("lightProfileButton");
    EXPECT_NE(Title("leftPlot").find("B | C"), std::string::npos)
        << "the last camera is shown with its left neighbour: " << Title("leftPlot");
    Click("scanWidthButton");
    EXPECT_NE(Title("leftPlot").find("edge"), std::string::npos) << Title("leftPlot");
    Click("verticalPositioningButton");
    EXPECT_NE(Title("leftPlot").find("ransition"), std::string::npos) << Title("leftPlot");
    Click("normalButton");
    EXPECT_EQ(Title("leftPlot").substr(0, 15), "Camera C, first");
}

TEST_F(COscilloscope_DialogTest, OneCameraHasNoLightProfile)
{
    OscilloscopeFile file;
    file.cameraPixels = {600};
    ASSERT_TRUE(Open(file));
    Click("verticalPositioningButton");
    const std::string vertical = Title("leftPlot");
    Click("normalButton");
    Click("lightProfileButton");
    EXPECT_EQ(Title("leftPlot"), vertical);
}

TEST_F(COscilloscope_DialogTest, CameraAdjustmentHasItsOwnLayout)
{
    OscilloscopeFile file;
    file.generation = 9;
    file.cameraPixels = {100, 100, 100, 100, 100};
    ASSERT_TRUE(Open(file));
    dialog->resize(1100, 700); // However small the screen is.
    EXPECT_EQ(Button("lightProfileButton").text(), "Camera Adjustment");
    EXPECT_FALSE(IsVisible("scanWidthButton"));
    EXPECT_FALSE(IsVisible("verticalPositioningButton"));
    const auto place = [this](const char* name) {
        const auto& widget = Find<QWidget>(name);
        return QRect(widget.mapTo(dialog.get(), QPoint()), widget.size());
    };
    const QRect gauge = place("widthGauge");
    ASSERT_TRUE(IsVisible("widthGauge"));
    EXPECT_GT(gauge.left(), place("leftPlot").right());
    EXPECT_LT(gauge.right(), place("rightPlot").left());
    const double details = place("leftPlot").width() + place("rightPlot").width();
    EXPECT_NEAR(details / place("overviewPlot").width(), 0.9, 0.03);
}

TEST_F(COscilloscope_DialogTest, OneLineHasNothingToAnimate)
{
    ASSERT_TRUE(Open(OscilloscopeFile()));
    EXPECT_FALSE(IsVisible("linesGroup"));
    PressKey(Qt::Key_PageDown);
    LetPass(250);
    EXPECT_EQ(Text("lineText"), "Line 1 of 1");
}

class AnimationTest : public COscilloscope_DialogTest {
protected:
    void SetUp() override
    {
        OscilloscopeFile file;
        file.lines = 3;
        ASSERT_TRUE(Open(file));
    }
    int FirstValue() const { return Overview().line->Of(Plane::Green).samples.at(0); }
    int TimerInterval() const { return dialog->findChild<QTimer*>("lineTimer")->interval(); }
};

TEST_F(AnimationTest, LinesFollowEachOtherAround)
{
    EXPECT_TRUE(IsVisible("linesGroup"));
    EXPECT_EQ(TimerInterval(), 100);
    EXPECT_TRUE(Becomes([&] { return Text("lineText") == "Line 3 of 3"; }));
    EXPECT_EQ(FirstValue(), OscilloscopeFile::Value(1, 2, 0));
    EXPECT_TRUE(Becomes([&] { return Text("lineText") == "Line 1 of 3"; }));
    EXPECT_EQ(FirstValue(), OscilloscopeFile::Value(1, 0, 0));
}

TEST_F(AnimationTest, SpaceHoldsAndKeysStep)
{
    PressKey(Qt::Key_Space);
    EXPECT_TRUE(Button("holdButton").isChecked());
    const std::string held = Text("lineText");
    LetPass(250);
    EXPECT_EQ(Text("lineText"), held);
    PressKey(Qt::Key_Right);
    EXPECT_NE(Text("lineText"), held);
    PressKey(Qt::Key_PageUp);
    EXPECT_EQ(Text("lineText"), held);
    PressKey(Qt::Key_Space);
    EXPECT_TRUE(Becomes([&] { return Text("lineText") != held; }));
}

TEST_F(AnimationTest, APauseOutsideTheRangeIsIgnored)
{
    Type<PauseSpinBox>("pauseSpin", "2500");
    EXPECT_EQ(TimerInterval(), 2500);
    for (const char* refused : {"50", "10001", "99999", ""}) {
        Type<PauseSpinBox>("pauseSpin", refused);
        EXPECT_EQ(TimerInterval(), 2500) << refused;
        EXPECT_EQ(Find<PauseSpinBox>("pauseSpin").value(), 2500) << refused;
    }
}

TEST_F(AnimationTest, APauseBeingTypedCountsFromTheNextLineOn)
{
    auto& edit = Find<PauseSpinBox>("pauseSpin");
    edit.setFocus();
    edit.selectAll();
    QTest::keyClicks(&edit, "40000");
    LetPass(250);
    EXPECT_EQ(TimerInterval(), 100);
    QTest::keyClick(&edit, Qt::Key_Backspace);
    EXPECT_TRUE(Becomes([&] { return TimerInterval() == 4000; }));
}

TEST_F(AnimationTest, FocusIsShownForEachCamera)
{
    EXPECT_FALSE(IsVisible("focusText"));
    Click("showFocusCheck");
    ASSERT_TRUE(IsVisible("focusText"));
    EXPECT_EQ(Text("focusText").substr(0, 10), "Focus   A ");
    EXPECT_NE(Text("focusText").find("   C "), std::string::npos);
}

TEST_F(AnimationTest, LettersTypedIntoTheFieldChooseNoCamera)
{
    auto& edit = Find<PauseSpinBox>("pauseSpin");
    edit.setFocus();
    QTest::keyClick(&edit, Qt::Key_B);
    EXPECT_TRUE(Button("cameraAButton").isChecked());
}

TEST_F(COscilloscope_DialogTest, TheCursorOverTheOverviewIsTold)
{
    ASSERT_TRUE(Open(OscilloscopeFile()));
    CLPFControle& overview = Plot("overviewPlot");
    QTest::mouseMove(&overview, overview.rect().center());
    const auto reading = overview.PositionAt(overview.rect().center());
    ASSERT_TRUE(reading);
    const int value = OscilloscopeFile::Value(1, 0, static_cast<int>(reading->pixel));
    EXPECT_EQ(
        Text("positionText"), std::to_string(reading->pixel) + " (" + std::to_string(value) + ")");
    EXPECT_NE(Text("cursorText").find("Camera B"), std::string::npos) << Text("cursorText");
    CLPFControle& left = Plot("leftPlot");
    QTest::mouseMove(&left, left.rect().center());
    EXPECT_EQ(Text("positionText"), "");
    EXPECT_NE(Text("cursorText").find("Camera A"), std::string::npos) << Text("cursorText");
}

TEST_F(COscilloscope_DialogTest, ZoomedInTheOverviewComesBackToTheWholeLine)
{
    ASSERT_TRUE(Open(OscilloscopeFile()));
    CLPFControle& overview = Plot("overviewPlot");
    QTest::mouseClick(&overview, Qt::LeftButton, Qt::NoModifier, overview.rect().center());
    EXPECT_LT(overview.View().length, 600.0);
    Click("zoomAllButton");
    EXPECT_EQ(overview.View(), (ProfileView{0.0, 600.0}));
    PressKey(Qt::Key_Plus);
    EXPECT_LT(overview.View().length, 600.0);
    PressKey(Qt::Key_Home);
    EXPECT_EQ(overview.View(), (ProfileView{0.0, 600.0}));
}

} // namespace
} // namespace vireo
