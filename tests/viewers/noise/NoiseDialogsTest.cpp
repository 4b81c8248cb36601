#include "platform/PrivateProfile.h"
#include "tests/viewers/DialogTest.h"
#include "tests/viewers/DropFiles.h"
#include "tests/viewers/noise/NoiseFiles.h"
#include "viewers/controls/PositionUnit.h"
#include "viewers/live/CNCTest_Dialog.h"
#include "viewers/noise/CNoiseTestControl.h"
#include "viewers/noise/CNoiseTest_SM_Dialog.h"

namespace vireo {
namespace {

const std::string kPlanes =
    FlatPlane(1000, 100) + FlatPlane(1000, 150) + FlatPlane(1000, 200) + FlatPlane(1000, 50);

class NoiseDialogsTest : public DialogTest<> {
protected:
    template <typename Dialog>
    void Open(const std::string& bytes)
    {
        Show(std::make_unique<Dialog>(folder.Write("noise.con", bytes)));
    }
    void OpenColour(bool withGray = false)
    {
        Open<CNoiseTest_SM_Dialog>(TextNoiseFile(
            "Color=Red:Green:Blue\nLength=1000\n", kPlanes.substr(0, withGray ? 4000 : 3000)));
    }
    CNoiseTestControl& Plot() const { return Find<CNoiseTestControl>("plot"); }
    static std::string KeptUnit()
    {
        return PrivateProfile(UnitSettingsFile()).ReadString("Miscellaneous", "Unit", "none");
    }
};

TEST_F(NoiseDialogsTest, ShowsAColourFile)
{
    OpenColour();
    EXPECT_EQ(dialog->windowTitle(), "Noise Test");
    EXPECT_EQ(Text("averageText"), "Average:  150");
    EXPECT_EQ(Text("limitText"), "Limit: 5 %");
    EXPECT_TRUE(Button("greenButton").isChecked());
    EXPECT_FALSE(Button("grayButton").isEnabled());
    EXPECT_TRUE(Button("centimetreButton").isChecked()) << "the unit without a setting";
    EXPECT_FALSE(Button("saveButton").isVisible());
    EXPECT_FALSE(Button("rescanButton").isVisible());
    EXPECT_TRUE(messages.Messages().empty());
}

TEST_F(NoiseDialogsTest, AFileDroppedOnTheWindowIsLoaded)
{
    OpenColour();
    const auto other =
        folder.Write("other.con", TextNoiseFile("Color=Gray\n", kPlanes.substr(0, 1000)));
    const auto missing = folder.Path() / PathFromUtf8("\xCE\xB1 \xE6\xB8\xAC.con");
    ASSERT_TRUE(DropFiles(*dialog, {UrlOf(other)}));
    EXPECT_EQ(Text("averageText"), "Average:  150") << "once the other program is let go";
    LetPass(1);
    EXPECT_EQ(Text("averageText"), "Average:  100");
    EXPECT_EQ(Text("fileText"), "other.con");
    ASSERT_TRUE(DropFiles(*dialog, {UrlOf(missing)}));
    LetPass(1);
    ASSERT_EQ(messages.Messages().size(), 1U);
    EXPECT_EQ(messages.Messages().front().text,
        "Vireo cannot open this file:\n" + Utf8FromPath(missing) + "\n\nNo such file.")
        << "names are shown in any script";
}

TEST_F(NoiseDialogsTest, TheColourButtonsChooseThePlane)
{
    OpenColour(true);
    struct Row {
        const char* button;
        const char* average;
    };
    for (const Row& row : {Row{"redButton", "Average:  100"}, Row{"blueButton", "Average:  200"},
             Row{"grayButton", "Average:  50"}, Row{"greenButton", "Average:  150"}}) {
        Click(row.button);
        EXPECT_EQ(Text("averageText"), row.average) << row.button;
    }
}

TEST_F(NoiseDialogsTest, AGrayFileOffersGrayOnly)
{
    Open<CNoiseTest_SM_Dialog>(TextNoiseFile("Color=Gray\n", kPlanes.substr(0, 1000)));
    EXPECT_TRUE(Button("grayButton").isChecked());
    for (const char* button : {"redButton", "greenButton", "blueButton"})
        EXPECT_FALSE(Button(button).isEnabled()) << button;
    EXPECT_EQ(Text("averageText"), "Average:  100");
}

TEST_F(NoiseDialogsTest, TheUnitIsKeptForTheNextTime)
{
    OpenColour();
    Click("inchButton");
    EXPECT_EQ(Plot().Content().unit, PositionUnit::Inch);
    EXPECT_EQ(KeptUnit(), "Inch");
    OpenColour();
    EXPECT_TRUE(Button("inchButton").isChecked());
    Click("scanUnitButton");
    EXPECT_EQ(KeptUnit(), "SU");
    Click("centimetreButton");
    EXPECT_EQ(KeptUnit(), "CM");
}

TEST_F(NoiseDialogsTest, TheUnitButtonsDoNothingWithoutAFile)
{
    Open<CNoiseTest_SM_Dialog>("not a noise test");
    Click("inchButton");
    EXPECT_EQ(Plot().Content().unit, PositionUnit::Centimetre);
    EXPECT_TRUE(Button("centimetreButton").isChecked());
    EXPECT_EQ(KeptUnit(), "none");
}

TEST_F(NoiseDialogsTest, ZoomAllChangesNothing)
{
    OpenColour();
    Plot().SetView({300, 4});
    Click("zoomAllButton");
    EXPECT_EQ(Plot().View(), (NoiseView{300, 4}));
}

TEST_F(NoiseDialogsTest, WritesTheCursorsPosition)
{
    OpenColour();
    Click("inchButton");
    const ProfileScale scale = NoiseScaleOf(Plot().Content(), Plot().size());
    const QPoint point(static_cast<int>(scale.XAt(500.0)), 100);
    const auto pixel = static_cast<double>(Plot().PixelAt(point).value_or(-1));
    QTest::mouseMove(&Plot(), point);
    EXPECT_EQ(Text("cursorText"), Format("Cursor\nPosition:  %.2f", pixel * 36.04 / 1000.0));
}

TEST_F(NoiseDialogsTest, TellsWhatCannotBeReadAndStaysEmpty)
{
    Open<CNoiseTest_SM_Dialog>(BinaryNoiseHeader(1000, false, 18) + kPlanes);
    ExpectMessage("Not a noise test file");
    EXPECT_EQ(Text("averageText"), "Average:  0");
    EXPECT_EQ(Plot().Content().data->m_iLineLength, 0);
}

TEST_F(NoiseDialogsTest, SaysOfWhichFileWhatFailedAndWhy)
{
    Open<CNoiseTest_SM_Dialog>("");
    ExpectMessage("noise.con\n\nThe file is empty.");
    OpenColour();
    std::filesystem::remove(folder.Path() / "noise.con");
    Key(Qt::Key_H, Qt::ControlModifier);
    ExpectMessage("cannot open this file:\n" + Utf8FromPath(folder.Path() / "noise.con")
        + "\n\nNo such file.");
    const auto target = folder.Path() / "gone" / "line.csv";
    NameInNextFileDialog(target);
    Key(Qt::Key_E, Qt::ControlModifier);
    ExpectMessage("Vireo cannot save this file:\n" + Utf8FromPath(target) + "\n\nNo such file.");
}

TEST_F(NoiseDialogsTest, TheNoiseCheckShowsTheSameData)
{
    Open<CNCTest_Dialog>(TextNoiseFile(
        "NoiseLimit=4\nColor=Red:Green:Blue\nLength=1000\n", kPlanes.substr(0, 3000)));
    EXPECT_EQ(dialog->windowTitle(), "Noise Check Test");
    EXPECT_EQ(Text("limitText"), " Limit = 4 %");
    EXPECT_EQ(Text("averageText"), "Avg = 59%"); // 150 of 255
    Click("blueButton");
    EXPECT_EQ(Text("averageText"), "Avg = 78%");
    Plot().SetView({300, 4});
    Click("zoomAllButton");
    EXPECT_EQ(Plot().View(), NoiseView::Whole(1000));
    EXPECT_TRUE(messages.Messages().empty());
}

TEST_F(NoiseDialogsTest, TheNoiseCheckMissesTheStationsLimit)
{
    Open<CNCTest_Dialog>(TextNoiseFile("Color=Gray\n", kPlanes.substr(0, 1000)));
    ExpectMessage("Noise Test Value not found in Fct_Tst6.INI.");
    EXPECT_EQ(Text("limitText"), " Limit = 5 %");
    EXPECT_TRUE(Button("greenButton").isChecked());
}

} // namespace
} // namespace vireo
