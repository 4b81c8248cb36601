#include "tests/TempFolder.h"
#include "tests/viewers/Waiting.h"
#include "tests/viewers/WidgetTest.h"
#include "tests/viewers/tonal/TonalFiles.h"
#include "viewers/tonal/CTonalResolution_Control.h"
#include "viewers/tonal/TonalResolutionPlot.h"

#include <QTest>

#include <gtest/gtest.h>

#include <cmath>

namespace vireo {
namespace {

constexpr QSize kSize(800, 500);

class TonalResolutionPlotTest : public testing::Test {
protected:
    TonalResolutionPlotTest()
    {
        content.data = &data;
        // Without texts that would lie over what is looked at.
        content.flags[TonalShowNames] = false;
    }

    void Read(const std::string& bytes)
    {
        ASSERT_EQ(data.Read(folder.Write("t.con", bytes)), TonalResult::Ok);
    }
    void ReadSample(const char* name)
    {
        Read(TempFolder::Read(std::filesystem::path(VIREO_SAMPLES) / name));
    }

    QImage Draw(QSize size = kSize, double ratio = 1.0) const
    {
        return Drawn(
            size, ratio, [&](QPainter& painter) { DrawTonalPlot(painter, size, content); });
    }

    /// Pixels of about this colour around a point of the plot.
    int Count(const QImage& image, const QColor& colour, double lightness, double value) const
    {
        constexpr int kReach = 3;
        constexpr int kNear = 60;
        const double ratio = image.devicePixelRatio();
        const ProfileScale scale = TonalScaleOf(content.view, kSize.width(), kSize.height());
        const int x = static_cast<int>(std::lround(scale.XAt(lightness) * ratio));
        const int y = static_cast<int>(std::lround(scale.YAt(value) * ratio));
        const int reach = static_cast<int>(kReach * ratio);
        int count = 0;
        for (int row = y - reach; row <= y + reach; ++row)
            for (int column = x - reach; column <= x + reach; ++column) {
                const QColor pixel = image.pixelColor(column, row);
                count += std::abs(pixel.red() - colour.red()) < kNear
                        && std::abs(pixel.green() - colour.green()) < kNear
                        && std::abs(pixel.blue() - colour.blue()) < kNear
                    ? 1
                    : 0;
            }
        return count;
    }
    int CountAll(const QImage& image, const QColor& colour) const
    {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y) == colour ? 1 : 0;
        return count;
    }

    TempFolder folder;
    TonalResolutionData data;
    TonalPlotContent content;
};

TEST_F(TonalResolutionPlotTest, ACrossStandsAtEachPatchOfEachChannel)
{
    ReadSample("tonal-resolution-shadows.con");
    const QColor colours[] = {QColor(255, 0, 0), QColor(0, 255, 0), QColor(0, 0, 255)};
    content.flags[TonalShowLines] = false;
    for (const TonalView view : {TonalView::BestFit, TonalView::Difference})
        for (std::size_t channel = 0; channel < kTonalChannels; ++channel) {
            content.view = view;
            content.flags[TonalShowRed] = channel == TonalRed;
            content.flags[TonalShowGreen] = channel == TonalGreen;
            content.flags[TonalShowBlue] = channel == TonalBlue;
            for (const double ratio : {1.0, 2.0}) {
                const QImage image = Draw(kSize, ratio);
                for (const std::size_t patch : {1U, 5U, 10U}) {
                    const double lightness = data.m_patches[patch].lightness;
                    EXPECT_GE(Count(image, colours[channel], lightness,
                                  TonalValueOf(data, view, patch, channel)),
                        static_cast<int>(7 * ratio))
                        << channel << " GS" << patch;
                }
            }
        }
    content.flags[TonalShowBlue] = false;
    EXPECT_EQ(CountAll(Draw(), QColor(0, 0, 255)), 0);
}

TEST_F(TonalResolutionPlotTest, LimitsLieOverTheLightnessesThatTheyAreAbout)
{
    ReadSample("tonal-resolution.con");
    LimitsFile file;
    ASSERT_FALSE(file.Parse("[tonal-resolution]\nmax_dark_deviation <= 4\n"
                            "max_light_deviation <= 7\nscanner_dynamic_range >= 3.1\n"));
    content.limits = file.Sections().front().limits;
    const QColor violet(140, 0, 160);
    content.view = TonalView::Difference;
    const QImage difference = Draw();
    for (const double sign : {-1.0, 1.0}) {
        EXPECT_GT(Count(difference, violet, 14.0, 4.0 * sign), 0);
        EXPECT_EQ(Count(difference, violet, 60.0, 4.0 * sign), 0);
        EXPECT_GT(Count(difference, violet, 60.0, 7.0 * sign), 0);
        EXPECT_EQ(Count(difference, violet, 14.0, 7.0 * sign), 0);
    }
    // GS00, the light limit, has the density 0.10.
    content.view = TonalView::DynamicRange;
    const QImage range = Draw();
    EXPECT_GT(Count(range, violet, 80.0, 3.2), 0);
    EXPECT_EQ(Count(range, violet, 80.0, 3.1), 0);
    content.view = TonalView::BestFit;
    EXPECT_EQ(CountAll(Draw(), violet), 0);
}

TEST_F(TonalResolutionPlotTest, FittedLinesRunFromEndToEnd)
{
    ReadSample("tonal-resolution-shadows.con");
    content.flags[TonalShowCrosses] = false;
    const QImage image = Draw();
    for (const double lightness : {1.0, 50.0, 99.0}) {
        EXPECT_GE(Count(image, QColor(255, 0, 0), lightness, data.m_fit[0].At(lightness)), 3);
        EXPECT_GE(Count(image, QColor(0, 0, 255), lightness, data.m_fit[2].At(lightness)), 3);
    }
    content.flags[TonalShowLines] = false;
    EXPECT_EQ(Count(Draw(), QColor(255, 0, 0), 50.0, data.m_fit[0].At(50.0)), 0);
}

TEST_F(TonalResolutionPlotTest, LinesThatCoincideAreOneLightRedLine)
{
    Read(HandFile());
    content.flags[TonalShowCrosses] = false;
    const QColor lightRed(255, 127, 127);
    content.view = TonalView::Difference;
    EXPECT_GE(Count(Draw(), lightRed, 70.0, 0.0), 3);
    content.view = TonalView::BestFit;
    EXPECT_EQ(Count(Draw(), lightRed, 50.0, data.m_fit[TonalGreen].At(50.0)), 0) << "red is apart";
    content.flags[TonalShowRed] = false;
    EXPECT_GE(Count(Draw(), lightRed, 50.0, data.m_fit[TonalGreen].At(50.0)), 3);
}

TEST_F(TonalResolutionPlotTest, ADifferenceBeyondTheAxisHasATriangleAtTheEdge)
{
    Read(HandFile());
    content.view = TonalView::Difference;
    const QImage image = Draw();
    EXPECT_GE(Count(image, QColor(255, 0, 0), 0.9033, 9.8), 15) << "GS23 is 233.75 above";
    EXPECT_GE(Count(image, QColor(255, 0, 0), 0.9033, -9.8), 15) << "GS12 is 21.25 below";
}

TEST_F(TonalResolutionPlotTest, TheLimitsOfTheRangeAreRed)
{
    ReadSample("tonal-resolution-shadows.con");
    content.view = TonalView::DynamicRange;
    const QImage image = Draw();
    const auto redAt = [&](std::size_t patch) {
        return Count(image, QColor(255, 0, 0), data.m_patches[patch].lightness,
            data.m_patches[patch].density);
    };
    EXPECT_GE(redAt(0), 25);
    EXPECT_GE(redAt(19), 25);
    EXPECT_EQ(redAt(10), 0);
    EXPECT_GE(Count(image, QColor(30, 34, 38), 60.0, DensityOfLightness(60.0)), 3) << "the curve";
}

TEST_F(TonalResolutionPlotTest, SaysInRedThatThereIsNothing)
{
    const auto redPixels = [&] { return CountAll(Draw(), QColor(255, 0, 0)); };
    EXPECT_GT(redPixels(), 20);
    content.data = nullptr;
    const int nothing = redPixels();
    EXPECT_GT(nothing, 20);
    content.isLoading = true;
    EXPECT_GT(redPixels(), 20);
    EXPECT_NE(redPixels(), nothing) << "another text";
    for (const QSize size : {QSize(1, 1), QSize(30, 300), QSize(300, 30)})
        Draw(size);
}

TEST_F(TonalResolutionPlotTest, DrawsOddRecordsAtAnySize)
{
    Read(TonalFileOf("GS00=3e38 1 2147483647 0 0 1 1 1\nGS05=-3e38 2 5 5 5 5 5 5\nGS09=nan\n"));
    for (const TonalView view :
        {TonalView::BestFit, TonalView::Difference, TonalView::DynamicRange}) {
        content.view = view;
        for (const QSize size : {QSize(1, 1), QSize(20, 9), QSize(800, 500)}) {
            content.pointed = 0;
            Draw(size);
        }
    }
}

class CTonalResolution_ControlTest : public TonalResolutionPlotTest {
protected:
    CTonalResolution_ControlTest()
    {
        ReadSample("tonal-resolution.con");
        control.resize(801, 501); // The client area is one pixel less.
        control.Initialise();
        control.SetData(&data);
        control.show();
        LetPass(1);
    }
    static QPoint PointOf(double lightness)
    {
        const ProfileScale scale = TonalScaleOf(TonalView::BestFit, 800, 500);
        return {static_cast<int>(scale.XAt(lightness)), 200};
    }

    CTonalResolution_Control control;
};

TEST_F(CTonalResolution_ControlTest, ShowsThePatchAtThePointer)
{
    const QImage before = control.grab().toImage();
    QTest::mouseMove(&control, PointOf(55.0));
    EXPECT_EQ(control.Content().pointed, 9U);
    EXPECT_NE(control.grab().toImage(), before);
    QTest::mouseMove(&control, QPoint(3, 3));
    EXPECT_FALSE(control.Content().pointed);
    EXPECT_EQ(control.grab().toImage(), before);
    QTest::mouseMove(&control, PointOf(55.0));
    LeaveWidget(control);
    EXPECT_EQ(control.grab().toImage(), before);
}

TEST_F(CTonalResolution_ControlTest, ArrowsGoFromPatchToPatch)
{
    QTest::keyClick(&control, Qt::Key_Left);
    EXPECT_EQ(control.Content().pointed, 0U) << "from the right end";
    QTest::keyClick(&control, Qt::Key_Left);
    QTest::keyClick(&control, Qt::Key_Left);
    EXPECT_EQ(control.Content().pointed, 2U);
    QTest::keyClick(&control, Qt::Key_Right);
    EXPECT_EQ(control.Content().pointed, 1U);
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(&control, Qt::Key_Right);
    EXPECT_EQ(control.Content().pointed, 0U);
    QTest::keyClick(&control, Qt::Key_Escape);
    EXPECT_FALSE(control.Content().pointed);
    control.SetData(nullptr);
    QTest::keyClick(&control, Qt::Key_Right);
    EXPECT_FALSE(control.Content().pointed);
}

TEST_F(CTonalResolution_ControlTest, ThePictureHasNoPointer)
{
    const QImage plain = control.Picture(2.0);
    EXPECT_EQ(plain.size(), QSize(1600, 1000));
    EXPECT_EQ(plain.pixelColor(0, 500), QColor(Qt::black)) << "its frame";
    QTest::keyClick(&control, Qt::Key_Left);
    EXPECT_EQ(control.Picture(2.0), plain);
    EXPECT_EQ(control.Content().pointed, 0U) << "but stays on the screen";
}

} // namespace
} // namespace vireo
