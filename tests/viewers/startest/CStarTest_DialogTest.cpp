#include "tests/viewers/DialogTest.h"
#include "tests/viewers/startest/StarTestFiles.h"
#include "viewers/controls/PictureMark.h"
#include "viewers/controls/ViewerHost.h"
#include "viewers/startest/CA2_StarTest_Control.h"
#include "viewers/startest/CStarTest_Dialog.h"

#include <QDoubleSpinBox>

#include <optional>

namespace vireo {
namespace {

/// Notes which picture it was asked to open.
class RecordingHost : public ViewerHost {
public:
    bool OpenViewer(std::string_view, const std::filesystem::path&, QWidget*) override
    {
        return false;
    }
    bool OpenPicture(const MarkedPicture& picture, QWidget*) override
    {
        opened = picture;
        return true;
    }

    bool UnpackDump(const std::filesystem::path&, QWidget*) override { return false; }

    std::optional<MarkedPicture> opened;
};

class StarTestDialog : public DialogTest<CStarTest_Dialog> {
protected:
    void Open(const std::filesystem::path& file)
    {
        Show(std::make_unique<CStarTest_Dialog>(file, host));
        QTRY_VERIFY_WITH_TIMEOUT(HasRead(), 5000);
    }
    /// A file is read once the dialog is on the screen: afterwards its name stands below the plot,
    /// or a message has come.
    bool HasRead() const { return !Text("fileText").empty() || !messages.Messages().empty(); }
    CA2_StarTest_Control& Plot() const { return Find<CA2_StarTest_Control>("plot"); }

    RecordingHost host;
};

TEST_F(StarTestDialog, ShowsTheSweepsOfAFile)
{
    Open(folder.Write("star.con", StarTestStart(2) + PlainSweep(300) + PlainSweep(600)));
    EXPECT_EQ(dialog->windowTitle(), "Star Test");
    EXPECT_EQ(Text("fileText"), "star.con");
    EXPECT_EQ(Text("sweepText"), "Sweep 1 of 2\n300 dpi, mono\nScan speed 0\n300 lines, 2.5 cm");
    EXPECT_FALSE(Find<QAbstractButton>("okButton").isVisible());
    EXPECT_EQ(Plot().Curves().Points(), 300);
    Plot().SelectSweep(1);
    EXPECT_EQ(Text("sweepText"), "Sweep 2 of 2\n300 dpi, mono\nScan speed 0\n600 lines, 5.1 cm");
    EXPECT_TRUE(messages.Messages().empty());
    EXPECT_NE(settings.Log().find("BOOL CStarTest_Dialog::OnInitDialog()"), std::string::npos);
}

TEST_F(StarTestDialog, KeepsWhatItShowsWhenAFileCannotBeRead)
{
    Open(folder.Write("star.con", StarTestStart(1) + PlainSweep(300)));
    dialog = nullptr;
    Open(folder.Path() / "missing.con");
    ExpectMessage("No such file");
    EXPECT_EQ(Plot().Curves().Points(), 0);
    Open(folder.Write("other.con", "[Noise Test]\n"));
    ExpectMessage("Not a star test file");
    Open(folder.Write("empty.con", StarTestStart(2) + "END_DATA\nEND_DATA\n"));
    ExpectMessage("No sweep of the star test has any lines");
}

TEST_F(StarTestDialog, TheScaleIsChosenBesideThePlot)
{
    Open(folder.Write("star.con", StarTestStart(1) + PlainSweep(300, 2.0)));
    EXPECT_EQ(Find<QDoubleSpinBox>("topSpin").value(), 5.0);
    EXPECT_EQ(Find<QDoubleSpinBox>("bottomSpin").value(), -5.0);
    Find<QDoubleSpinBox>("topSpin").setValue(8.0);
    EXPECT_EQ(Plot().Scale().top, 8.0);
    EXPECT_EQ(Plot().Scale().bottom, -5.0);
    Click("automaticCheck");
    EXPECT_TRUE(Plot().HasAutomaticScale());
    EXPECT_LT(Find<QDoubleSpinBox>("topSpin").value(), 5.0);
    Click("resetScaleButton");
    EXPECT_EQ(Plot().Scale(), VerticalScale());
    EXPECT_FALSE(Find<QAbstractButton>("automaticCheck").isChecked());
    Click("keepCurvesCheck");
    EXPECT_FALSE(Plot().KeepsVisibility());
}

TEST_F(StarTestDialog, OpensTheMarkedPictureOfTheSweep)
{
    Open(folder.Write("star.con", StarTestStart(2) + PlainSweep(300) + PlainSweep(300)));
    Plot().SelectSweep(1);
    Click("pictureButton");
    ExpectMessage("StarTest_Raw_01.tif");
    EXPECT_FALSE(host.opened);
    const auto picture = folder.Write("StarTest_Raw_01.tif", "II");
    QTest::mouseMove(&Plot(), {Plot().PlotLeft() + 50, Plot().height() / 2});
    const std::int64_t line = Plot().CursorLine();
    ASSERT_GT(line, 0);
    QTest::mouseMove(&Plot(), {2, 2});
    Click("pictureButton");
    ASSERT_TRUE(host.opened);
    EXPECT_EQ(host.opened->file, picture);
    EXPECT_EQ(host.opened->middle.line, line);
    EXPECT_EQ(host.opened->middle.column, 1000 - line);
    EXPECT_EQ(host.opened->marks.size(), 2U * 297U); // Lines 1 to 297 of the X range 1 to 298.
}

} // namespace
} // namespace vireo
