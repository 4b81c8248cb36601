#include "tests/TempFolder.h"
#include "tests/viewers/Waiting.h"
#include "tests/viewers/WidgetTest.h"
#include "tests/viewers/noise/NoiseFiles.h"
#include "viewers/controls/ProfilePlot.h"
#include "viewers/noise/CNoiseTestControl.h"
#include "viewers/noise/NoiseData.h"

#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>

namespace vireo {
namespace {

/// A colour line of 20,000 pixels: green at 200 with a dip to 100 at 5,000, red at 60.
std::string DippedFile()
{
    std::string green = FlatPlane(20000, 200);
    green[5000] = 100;
    return TextNoiseFile("Color=Red:Green:Blue\nLength=20000\n",
        FlatPlane(20000, 60) + green + FlatPlane(20000, 90));
}

class NoisePlotTest : public testing::Test {
protected:
    void Read(const std::string& file)
    {
        ASSERT_EQ(data.Read(folder.Write("n.con", file)), NoiseResult::Ok);
        data.Summarise();
        content.data = &data;
        content.view = ProfileView::Whole(data.m_iLineLength);
    }

    QImage Draw(QSize size, double ratio = 1.0) const
    {
        return Drawn(
            size, ratio, [&](QPainter& painter) { DrawNoisePlot(painter, size, content); });
    }

    static QColor ColourAt(const QImage& image, double x, double y)
    {
        return image.pixelColor(static_cast<int>(x), static_cast<int>(y));
    }

    TempFolder folder;
    NoiseData data;
    NoisePlotContent content;
};

TEST_F(NoisePlotTest, DrawsAverageAndBandAtTheirLevels)
{
    Read(DippedFile());
    const QImage image = Draw({900, 570});
    const ProfileScale scale = NoiseScaleOf(content, {900, 570});
    const auto rowOf = [&](double level) {
        return std::floor(scale.top + (256.0 - level) * scale.height / 256.0);
    };
    for (const double x : {scale.left + 3.0, scale.Right() - 3.0}) {
        EXPECT_EQ(ColourAt(image, x, rowOf(210.0)), QColor(255, 0, 0));
        EXPECT_EQ(ColourAt(image, x, rowOf(200.0)), QColor(0, 255, 0));
        EXPECT_EQ(ColourAt(image, x, rowOf(190.0)), QColor(255, 0, 0));
        EXPECT_EQ(ColourAt(image, x, rowOf(240.0) + 2.0), QColor(Qt::white));
    }
}

TEST_F(NoisePlotTest, StandsATriangleOfTwentyRowsUnderTheDip)
{
    Read(DippedFile());
    const QImage image = Draw({900, 570});
    const ProfileScale scale = NoiseScaleOf(content, {900, 570});
    const double x = std::floor(scale.XAt(5000.5));
    const double tip = std::floor(scale.top + (255 - 100) * scale.height / 256.0);
    const QColor green(0, 255, 0);
    for (int row = 0; row < 20; ++row) {
        EXPECT_EQ(ColourAt(image, x - row, tip + row), green) << row;
        EXPECT_EQ(ColourAt(image, x + row, tip + row), green) << row;
        EXPECT_NE(ColourAt(image, x - row - 1, tip + row), green) << row;
        EXPECT_NE(ColourAt(image, x + row + 1, tip + row), green) << row;
    }
    EXPECT_NE(ColourAt(image, x, tip + 20), green);
}

TEST_F(NoisePlotTest, DrawsThePlaneShownAtEveryRatio)
{
    Read(DippedFile());
    const ProfileScale scale = NoiseScaleOf(content, {900, 400});
    for (const double ratio : {1.0, 2.0}) {
        // On the way down the dip, which only green has, and between the lines of the grid.
        const QPointF point(scale.XAt(5000.5) * ratio, scale.YAt(143) * ratio);
        data.m_shown = ShownColour::Green;
        const QImage green = Draw({900, 400}, ratio);
        EXPECT_EQ(ColourAt(green, point.x(), point.y()), TraceColour(ShownColour::Green));
        EXPECT_NE(ColourAt(green, 900 * ratio - 1, 400 * ratio - 1), QColor(Qt::magenta));
        data.m_shown = ShownColour::Red;
        EXPECT_EQ(ColourAt(Draw({900, 400}, ratio), point.x() + 2, point.y()), QColor(Qt::white));
    }
}

TEST_F(NoisePlotTest, ALineOf100PixelsHasACurveButNoBand)
{
    std::string plane = FlatPlane(100, 200);
    plane[50] = 20;
    Read(TextNoiseFile("Color=Gray\n", plane));
    const QImage image = Draw({900, 570});
    int red = 0;
    int curve = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 50; x < 840; ++x) {
            red += image.pixelColor(x, y) == QColor(255, 0, 0) ? 1 : 0;
            curve += image.pixelColor(x, y).lightness() < 90 ? 1 : 0;
        }
    EXPECT_EQ(red, 0);
    EXPECT_GT(curve, 400);
}

TEST_F(NoisePlotTest, DrawsNothingWrongWithoutDataOrRoom)
{
    EXPECT_EQ(Draw({300, 200}).pixelColor(150, 100), QColor(Qt::white));
    Read(DippedFile());
    for (const QSize size : {QSize(1, 1), QSize(60, 20), QSize(10, 300), QSize(300, 10)})
        Draw(size);
    for (const ProfileView view : {ProfileView{0.0, 0.0}, ProfileView{4999.0, 3.0}}) {
        content.view = view;
        Draw({300, 200});
    }
    data.m_shown = ShownColour::Gray; // A plane that the file has not got.
    Draw({300, 200});
}

class CNoiseTestControlTest : public NoisePlotTest {
protected:
    CNoiseTestControlTest()
    {
        Read(DippedFile());
        control.resize(884, 400); // The plot is 800 wide.
        control.SetScrollBar(&scrollBar);
        control.SetData(&data);
        control.show();
        LetPass(1);
    }

    QPoint PointAt(double share) const
    {
        const ProfileScale scale = NoiseScaleOf(control.Content(), control.size());
        return {static_cast<int>(scale.left + share * scale.width), 150};
    }

    void Click(Qt::MouseButton button, double share)
    {
        QTest::mouseClick(&control, button, {}, PointAt(share));
    }

    QScrollBar scrollBar{Qt::Horizontal};
    CNoiseTestControl control;
};

TEST_F(CNoiseTestControlTest, ClicksZoomInAndOut)
{
    Click(Qt::LeftButton, 0.75);
    EXPECT_EQ(control.View(), (NoiseView{15000, 2}));
    Click(Qt::LeftButton, 0.25);
    EXPECT_EQ(control.View(), (NoiseView{12500, 4}));
    EXPECT_EQ(control.Content().view, (ProfileView{10000.0, 5000.0}));
    Click(Qt::RightButton, 0.1);
    EXPECT_EQ(control.View(), (NoiseView{12500, 2}));
    QTest::mouseDClick(&control, Qt::RightButton, {}, PointAt(0.1));
    EXPECT_EQ(control.View(), (NoiseView{10000, 1}));
}

TEST_F(CNoiseTestControlTest, ScrollBarAndViewFollowEachOther)
{
    EXPECT_FALSE(scrollBar.isEnabled());
    Click(Qt::LeftButton, 0.5);
    Click(Qt::LeftButton, 0.5);
    EXPECT_EQ(scrollBar.pageStep(), 5000);
    EXPECT_EQ(scrollBar.maximum(), 15000);
    EXPECT_EQ(scrollBar.value(), 7500);
    scrollBar.triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(control.View(), (NoiseView{15000, 4}));
    scrollBar.triggerAction(QAbstractSlider::SliderSingleStepSub);
    EXPECT_EQ(control.View(), (NoiseView{14500, 4}));
    scrollBar.triggerAction(QAbstractSlider::SliderToMaximum);
    EXPECT_EQ(control.Content().view.End(), 20000.0);
    scrollBar.triggerAction(QAbstractSlider::SliderToMinimum);
    EXPECT_EQ(control.Content().view.first, 0.0);
}

TEST_F(CNoiseTestControlTest, TheWheelZoomsAtThePointer)
{
    const QPoint point = PointAt(0.25);
    TurnWheel(control, point, {0, 120});
    EXPECT_EQ(control.View(), (NoiseView{7500, 2}));
    TurnWheel(control, point, {0, 60});
    EXPECT_EQ(control.View().zoom, 2);
    TurnWheel(control, point, {0, 60});
    EXPECT_EQ(control.View().zoom, 4);
    TurnWheel(control, point, {0, -360});
    EXPECT_EQ(control.View(), (NoiseView{10000, 1}));
}

TEST_F(CNoiseTestControlTest, TellsThePixelUnderThePointer)
{
    std::optional<std::int64_t> told;
    QObject::connect(&control, &CNoiseTestControl::CursorMoved, &control,
        [&](std::optional<std::int64_t> pixel) { told = pixel; });
    QTest::mouseMove(&control, PointAt(0.5));
    EXPECT_EQ(told, 10000);
    EXPECT_FALSE(control.PixelAt({3, 150})) << "left of the axis";
    control.grab(); // With the cursor.
}

} // namespace
} // namespace vireo
