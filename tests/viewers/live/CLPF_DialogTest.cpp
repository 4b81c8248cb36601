#include "tests/viewers/AltLetters.h"
#include "tests/viewers/Waiting.h"
#include "tests/viewers/live/LiveTests.h"
#include "viewers/controls/CLPFControle.h"
#include "viewers/lightprofile/LightProfileData.h"
#include "viewers/live/CLPF_Dialog.h"

#include <QComboBox>
#include <QSpinBox>

namespace vireo {
namespace {

class CLPF_DialogTest : public LiveDialogTest<CLPF_Dialog> {
protected:
    void Open()
    {
        Show(std::make_unique<CLPF_Dialog>(Scanner()));
        ASSERT_TRUE(Becomes([this] { return Line().Length() == 21624; }));
    }
    const ProfileLine& Line() const { return dialog->Line(); }
    /// Mean of pixels of a camera's middle.
    double MeanOf(int camera, Plane plane) const
    {
        double sum = 0.0;
        for (std::size_t i = 0; i < 1000; ++i)
            sum += Line().Of(plane).samples[static_cast<std::size_t>(camera) * 5406 + 2000 + i];
        return sum / 1000.0;
    }
};

TEST_F(CLPF_DialogTest, ShowsTheLinesThatCome)
{
    Open();
    EXPECT_EQ(dialog->windowTitle(), "Light Profile");
    EXPECT_EQ(Text("scannerText"), "SimulatedScanner (SIM1)");
    EXPECT_EQ(Text("paperText"), "Sheet loaded");
    EXPECT_TRUE(IsVisible("simulatedText")) << "nobody takes it for a measurement";
    EXPECT_FALSE(IsVisible("failureText"));
    EXPECT_FALSE(IsVisible("grayButton"));
    ExpectDifferentLetters(*dialog);
    const std::string first = Text("noteText");
    ASSERT_TRUE(Becomes([&] { return Text("noteText") != first; }));
    ASSERT_TRUE(Becomes([&] { return Text("rateText").find("lines/s") != std::string::npos; }));
    EXPECT_TRUE(messages.Messages().empty());

    // The curve is where the samples say, in the colour of the plane.
    Click("startButton");
    auto& plot = Find<CLPFControle>("overviewPlot");
    const QImage picture = plot.grab().toImage();
    const ProfileScale scale = ScaleOf(plot.Content(), plot.size());
    EXPECT_EQ(plot.Content().cameras.Count(), 4);
    for (const int pixel : {3000, 9000, 15000}) {
        const int value = Line().Of(Plane::Green).samples[static_cast<std::size_t>(pixel)];
        bool isGreen = false;
        for (int above = -2; above <= 2; ++above) {
            const QColor colour = picture.pixelColor(
                static_cast<int>(scale.XAt(pixel)), static_cast<int>(scale.YAt(value)) + above);
            isGreen = isGreen || colour.green() > colour.red() + 50;
        }
        EXPECT_TRUE(isGreen) << pixel;
    }
}

TEST_F(CLPF_DialogTest, StopsAndStarts)
{
    Open();
    EXPECT_EQ(Button("startButton").text(), "S&top");
    Click("startButton");
    EXPECT_EQ(Button("startButton").text(), "S&tart");
    EXPECT_EQ(Text("rateText"), "stopped");
    // The line that was being taken may still come.
    EXPECT_TRUE(StandsStill([this] { return Text("noteText"); }));
    const std::string last = Text("noteText");
    Click("startButton");
    EXPECT_TRUE(Becomes([&] { return Text("noteText") != last; }));
    EXPECT_EQ(watch.opens, 1);
}

TEST_F(CLPF_DialogTest, ChoosesThePlaneAndTheCamera)
{
    Open();
    auto& left = Find<CLPFControle>("leftPlot");
    Click("blueButton");
    EXPECT_EQ(left.Content().shown, ShownColour::Blue);
    EXPECT_EQ(left.View().first, 0.0);
    QTest::keyClick(&Find<QComboBox>("cameraBox"), Qt::Key_Down);
    EXPECT_EQ(left.View().first, 5406.0);
    Click("boundaryButton");
    EXPECT_EQ(left.View().End(), 2 * 5406.0);
    EXPECT_EQ(Find<CLPFControle>("rightPlot").View().first, 2 * 5406.0);
    Click("allButton");
    EXPECT_FALSE(Find<QSpinBox>("gainSpin").isEnabled()) << "of which plane?";
    EXPECT_TRUE(Find<QSpinBox>("stitchSpin").isEnabled());
}

TEST_F(CLPF_DialogTest, SetsGainOffsetAndStitch)
{
    Open();
    Find<QComboBox>("cameraBox").setCurrentIndex(1);
    const int gain = Find<QSpinBox>("gainSpin").value();
    const double before = MeanOf(1, Plane::Green);
    const double other = MeanOf(2, Plane::Green);
    Type<QSpinBox>("gainSpin", QString::number(gain - 40));
    ASSERT_TRUE(Becomes([&] { return MeanOf(1, Plane::Green) < before - 20.0; }));
    EXPECT_NEAR(MeanOf(2, Plane::Green), other, 2.0);
    EXPECT_GT(MeanOf(1, Plane::Red), before - 20.0);
    Type<QSpinBox>("offsetSpin", "100");
    ASSERT_TRUE(Becomes([&] { return MeanOf(1, Plane::Green) > before - 10.0; }));
    Type<QSpinBox>("stitchSpin", "31");
    Find<QComboBox>("cameraBox").setCurrentIndex(0);
    EXPECT_NE(Find<QSpinBox>("stitchSpin").value(), 31) << "of another boundary";
    ASSERT_TRUE(Becomes([&] {
        Find<QComboBox>("cameraBox").setCurrentIndex(1);
        return Find<QSpinBox>("stitchSpin").value() == 31;
    }));
    EXPECT_EQ(Find<QSpinBox>("gainSpin").value(), gain - 40);
    EXPECT_EQ(Find<QSpinBox>("gainSpin").maximum(), 255);
}

TEST_F(CLPF_DialogTest, CorrectionFlattensTheLine)
{
    Open();
    EXPECT_LT(Line().Of(Plane::Green).samples[0], 190);
    Click("correctedCheck");
    ASSERT_TRUE(Becomes([&] { return Line().Of(Plane::Green).samples[0] > 195; }));
    EXPECT_TRUE(Button("correctedCheck").isChecked());
}

TEST_F(CLPF_DialogTest, AveragesAndHolds)
{
    Open();
    Type<QSpinBox>("averageSpin", "8");
    ASSERT_TRUE(Becomes([&] { return Text("noteText").rfind("Average of 8 lines", 0) == 0; }));
    EXPECT_TRUE(Line().extras.empty());
    Click("holdCheck");
    ASSERT_EQ(Line().extras.size(), 2U);
    const auto spread = [&] {
        int sum = 0;
        for (std::size_t i = 0; i < 1000; ++i)
            sum += Line().extras[1].trace.samples[i] - Line().extras[0].trace.samples[i];
        return sum;
    };
    ASSERT_TRUE(Becomes([&] { return spread() > 5000; })) << "it grows with the lines";
    Click("startButton");
    Click("restartButton");
    Click("startButton");
    EXPECT_TRUE(Becomes([&] { return spread() < 5000; }));
}

TEST_F(CLPF_DialogTest, AFailureIsReportedOnceAndTheDialogGoesOn)
{
    Open();
    watch.fails = true;
    ASSERT_TRUE(Becomes([&] { return IsVisible("failureText"); }));
    EXPECT_EQ(Text("failureText"), "Unknown Error.");
    EXPECT_EQ(Button("startButton").text(), "S&tart");
    LetPass(100);
    ExpectMessage("Could not find ErrorOut.dll");
    const std::string kept = TempFolder::Read(settings.Path() / "LastError.txt");
    EXPECT_EQ(kept.find("Unknown Error."), kept.rfind("Unknown Error.")) << "once";

    watch.fails = false;
    Click("startButton");
    EXPECT_FALSE(IsVisible("failureText"));
    const std::string last = Text("noteText");
    EXPECT_TRUE(Becomes([&] { return Text("noteText") != last; }));
    EXPECT_EQ(watch.opens, 2);
}

TEST_F(CLPF_DialogTest, ABlackAndWhiteScannerHasGrayOnly)
{
    setup.mode = 0;
    Open();
    EXPECT_TRUE(IsVisible("grayButton"));
    for (const char* button : {"redButton", "greenButton", "blueButton", "allButton"})
        EXPECT_FALSE(IsVisible(button)) << button;
    EXPECT_TRUE(Line().Of(Plane::Red).samples.empty());
    EXPECT_TRUE(Find<QSpinBox>("gainSpin").isEnabled());
}

TEST_F(CLPF_DialogTest, WhatIsSavedTheViewerReads)
{
    Open();
    Click("startButton");
    EXPECT_TRUE(StandsStill([this] { return Text("noteText"); }));
    const auto file = folder.Path() / "live.con";
    SaveAs(file);
    EXPECT_TRUE(messages.Messages().empty());
    LightProfileData data;
    ASSERT_EQ(data.Read(file), LightProfileResult::Ok);
    EXPECT_EQ(data.Record().scannerName, "SimulatedScanner");
    EXPECT_EQ(data.Record().scannerID, "SIM1");
    EXPECT_EQ(data.Record().scannerWidth, 43248);
    EXPECT_FALSE(data.Record().corrected);
    EXPECT_EQ(data.Cameras().pixels, (std::array{5406, 5406, 5406, 5406, 0, 0, 0, 0}));
    ProfileLine line;
    ASSERT_TRUE(data.Lines().ReadLine(0, line));
    for (const Plane plane : {Plane::Red, Plane::Green, Plane::Blue})
        EXPECT_EQ(line.Of(plane).samples, Line().Of(plane).samples);
}

TEST_F(CLPF_DialogTest, ClosesTheScanner)
{
    Open();
    dialog.reset();
    EXPECT_EQ(watch.closes, 1);
    EXPECT_FALSE(watch.overlapped);
}

} // namespace
} // namespace vireo
