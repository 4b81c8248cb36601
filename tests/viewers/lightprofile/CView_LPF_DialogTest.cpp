#include "platform/PrivateProfile.h"
#include "tests/viewers/DialogTest.h"
#include "tests/viewers/lightprofile/LightProfileFiles.h"
#include "viewers/controls/CLPFControle.h"
#include "viewers/lightprofile/CView_LPF_Dialog.h"

#include <QSpinBox>
#include <QTableWidget>

#include <cmath>

namespace vireo {
namespace {

/// Two cameras of 200 pixels each, the right one brighter by 20 levels.
const std::string kCameras = "CameraCount=2\nCameraAPix=200\nCameraBPix=200\n"
                             "ScannerWidth(1/1200)=4800\nScannerName=Heron 36\n";
std::string Line(int level)
{
    return std::string(200, static_cast<char>(level))
        + std::string(200, static_cast<char>(level + 20));
}

class CView_LPF_DialogTest : public DialogTest<CView_LPF_Dialog> {
protected:
    void Open(const std::string& bytes)
    {
        Show(std::make_unique<CView_LPF_Dialog>(folder.Write("profile.con", bytes)));
    }

    CLPFControle& Plot(const char* name) const { return Find<CLPFControle>(name); }
    void PointAt(CLPFControle& plot, double share) const
    {
        const ProfileScale scale = ScaleOf(plot.Content(), plot.size());
        // Rounded up, to be on the pixel that begins there.
        const double x = std::ceil(scale.left + share * scale.width);
        QTest::mouseMove(&plot, QPointF(x, scale.top + scale.height / 2.0).toPoint());
    }
};

TEST_F(CView_LPF_DialogTest, ShowsAGrayProfileOfTwoCameras)
{
    Open(TextFile("[Light Profile]", "Color=Gray\nCorrected=TRUE\n" + kCameras, Line(100)));
    EXPECT_TRUE(messages.Messages().empty());
    EXPECT_TRUE(Button("grayButton").isVisible());
    EXPECT_FALSE(Button("redButton").isVisible());
    EXPECT_TRUE(Button("cameraBButton").isVisible());
    EXPECT_FALSE(Button("cameraCButton").isVisible());
    EXPECT_FALSE(Find<QSpinBox>("lineSpin").isVisible());
    EXPECT_EQ(Text("valuesText"), "Lowest 100\nHighest 120\nMean 110.0\n8-bit, corrected");
    EXPECT_NE(Text("fileText").find("Heron 36"), std::string::npos);
    EXPECT_EQ(Plot("overviewPlot").View(), (ProfileView{0.0, 400.0}));
    EXPECT_EQ(Plot("rightPlot").View().End(), 200.0) << "the end of camera A";
}

TEST_F(CView_LPF_DialogTest, ShowsSignedColoursAndTheirBoundary)
{
    std::string data;
    for (int i = 0; i < 400; ++i)
        data += Bytes32({-70'000, i < 200 ? 1000 : 1500, 5});
    Open(TextFile(
        "[G3 Light Profile]", "Color=Red:Green:Blue\nIsSigned_32_Profile=TRUE\n" + kCameras, data));
    EXPECT_TRUE(Button("allButton").isChecked());
    const ProfileScene all = Plot("overviewPlot").Content().scene;
    EXPECT_LT(all.low, -70'000.0);
    EXPECT_GT(all.high, 1500.0);
    EXPECT_EQ(Text("valuesText"), "Green\nLowest 1000\nHighest 1500\nMean 1250.0\nSigned 32-bit");
    Click("greenButton");
    EXPECT_EQ(Text("valuesText"), "Lowest 1000\nHighest 1500\nMean 1250.0\nSigned 32-bit");
    EXPECT_GT(Plot("overviewPlot").Content().scene.low, 0.0) << "red is not shown any more";
    Click("boundaryButton");
    EXPECT_EQ(Plot("rightPlot").Content().scene.title,
        "Camera B at A | B: mean 1500.0, step +500.0 (+50.0 %)");
    Click("redButton");
    PointAt(Plot("overviewPlot"), 0.5);
    EXPECT_EQ(Text("positionText"), "200 (-70000)");
}

TEST_F(CView_LPF_DialogTest, KeysChooseCameraAndLine)
{
    Open(TextFile("[Light Profile]", kCameras + "Height=2\n", Line(100) + Line(150)));
    EXPECT_TRUE(Find<QSpinBox>("lineSpin").isVisible());
    EXPECT_EQ(Text("lineText"), "of 2");
    Key(Qt::Key_B);
    EXPECT_TRUE(Button("cameraBButton").isChecked());
    EXPECT_EQ(Plot("rightPlot").View().End(), 400.0);
    Key(Qt::Key_C);
    EXPECT_TRUE(Button("cameraBButton").isChecked()) << "there is no camera C";
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Text("valuesText"), "Lowest 150\nHighest 170\nMean 160.0\n8-bit");
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Find<QSpinBox>("lineSpin").value(), 2);
    Key(Qt::Key_Plus);
    EXPECT_NEAR(Plot("overviewPlot").View().length, 320.0, 1e-9);
    Key(Qt::Key_Home);
    EXPECT_EQ(Plot("overviewPlot").View().length, 400.0);
}

TEST_F(CView_LPF_DialogTest, TheUnitIsShownAndKept)
{
    Open(TextFile("[Light Profile]", kCameras, Line(100)));
    PointAt(Plot("overviewPlot"), 0.5);
    // 4 inches over 400 pixels.
    EXPECT_EQ(Text("cursorText"), "Pixel 200   5.080 cm   Camera B   Gray 120");
    Click("inchButton");
    PointAt(Plot("overviewPlot"), 0.25);
    EXPECT_EQ(Text("cursorText"), "Pixel 100   1.000 in   Camera A   Gray 100");
    EXPECT_EQ(
        PrivateProfile(UnitSettingsFile()).ReadString("Miscellaneous", "Unit", "none"), "Inch");
}

TEST_F(CView_LPF_DialogTest, OneMessageForAFileThatEndsEarly)
{
    Open(TextFile("[Light Profile]", kCameras, Line(100).substr(0, 300)));
    ExpectMessage("300 of at least 400 pixels");
    EXPECT_EQ(Plot("overviewPlot").View().length, 300.0) << "what is there is shown";
    Open("[Light Profile]\nDataPointer=      9999\n");
    EXPECT_EQ(messages.Messages().size(), 1U);
    EXPECT_EQ(Text("valuesText"), "No data");
}

TEST_F(CView_LPF_DialogTest, ControlHShowsTheHeader)
{
    Open(TextFile("[Light Profile]", kCameras, Line(100)));
    std::vector<std::string> meanings;
    InNextWindow<QDialog>([&](QDialog& header) {
        const auto* table = header.findChild<QTableWidget*>();
        for (int row = 0; row < table->rowCount(); ++row)
            meanings.push_back(table->item(row, 2)->text().toStdString());
        header.close();
    });
    Key(Qt::Key_H, Qt::ControlModifier);
    const std::vector<std::string> expected{"Section", "Where the data begin, in bytes",
        "Number of cameras", "Pixels of camera A", "Pixels of camera B",
        "Scan width: 4.00 in, 101.6 mm", "Name of the scanner"};
    EXPECT_EQ(meanings, expected);

    Open(OldHeader(16, 4) + "abcd");
    Key(Qt::Key_H, Qt::ControlModifier);
    ExpectMessage("Old Con-file.\nNo Header Information available");
}

} // namespace
} // namespace vireo
