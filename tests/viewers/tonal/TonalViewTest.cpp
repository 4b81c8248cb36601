#include "tests/TempFolder.h"
#include "tests/viewers/tonal/TonalFiles.h"
#include "viewers/tonal/TonalReport.h"
#include "viewers/tonal/TonalView.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

TEST(TonalScale, LeavesATenthAtEveryEdge)
{
    const ProfileScale fit = TonalScaleOf(TonalView::BestFit, 805, 609);
    EXPECT_EQ(fit.left, 80);
    EXPECT_EQ(fit.top, 60);
    EXPECT_EQ(fit.Right(), 725);
    EXPECT_EQ(fit.Bottom(), 549);
    EXPECT_EQ(fit.XAt(0.0), 80);
    EXPECT_EQ(fit.XAt(100.0), 725);
    EXPECT_EQ(fit.YAt(0.0), 549);
    EXPECT_EQ(fit.YAt(255.0), 60);
}

TEST(TonalScale, DifferencesAndDensitiesHaveTheirUnits)
{
    // A plot 400 high: 20 a unit of difference around the middle, 80 a unit of density from below.
    const ProfileScale difference = TonalScaleOf(TonalView::Difference, 800, 500);
    EXPECT_EQ(difference.YAt(0.0), 250);
    EXPECT_EQ(difference.YAt(-3.0), 310);
    const ProfileScale range = TonalScaleOf(TonalView::DynamicRange, 800, 500);
    EXPECT_EQ(range.YAt(0.0), 450);
    EXPECT_EQ(range.YAt(1.5), 330);
}

std::string TextsOf(TonalView view, double height)
{
    std::string texts;
    for (const AxisTick& tick : TonalValueTicks(view, height))
        texts += tick.text + ",";
    return texts;
}

TEST(TonalScale, TicksHaveTextsWhereThereIsRoom)
{
    EXPECT_EQ(TextsOf(TonalView::BestFit, 400), "0,50,100,150,200,255,");
    EXPECT_EQ(
        TextsOf(TonalView::DynamicRange, 400), "0.0,0.5,1.0,1.5,2.0,2.5,3.0,3.5,4.0,4.5,5.0,");
    EXPECT_EQ(TextsOf(TonalView::Difference, 400),
        "-10,-9,-8,-7,-6,-5,-4,-3,-2,-1,0,1,2,3,4,5,6,7,8,9,10,");
    EXPECT_EQ(TextsOf(TonalView::Difference, 200), "-10,,-8,,-6,,-4,,-2,,0,,2,,4,,6,,8,,10,");
    EXPECT_EQ(TextsOf(TonalView::Difference, 100), "-10,,,,,-5,,,,,0,,,,,5,,,,,10,");
    EXPECT_EQ(TextsOf(TonalView::Difference, 1), TextsOf(TonalView::Difference, 100));
}

class TonalViewTest : public testing::Test {
protected:
    TonalViewTest()
    {
        EXPECT_EQ(data.Read(folder.Write("t.con", HandFile())), TonalResult::Ok);
        content.data = &data;
    }

    TempFolder folder;
    TonalResolutionData data;
    TonalPlotContent content;
};

TEST_F(TonalViewTest, PlotsWhatTheViewIsAbout)
{
    EXPECT_EQ(TonalValueOf(data, TonalView::BestFit, 23, TonalGreen), 0.0);
    EXPECT_NEAR(TonalValueOf(data, TonalView::Difference, 23, TonalRed), 233.75, 1e-9);
    EXPECT_NEAR(TonalValueOf(data, TonalView::DynamicRange, 23, TonalBlue), 3.0, 1e-7);
    EXPECT_EQ(content.Channels(), (std::vector<std::size_t>{0, 1, 2}));
    content.flags[TonalShowGreen] = false;
    EXPECT_EQ(content.Channels(), (std::vector<std::size_t>{0, 2}));
    content.view = TonalView::DynamicRange;
    EXPECT_TRUE(content.Channels().empty());
}

TEST_F(TonalViewTest, FindsThePatchNearestToThePointer)
{
    data.m_patches[7].lightness = 60.0;
    data.m_patches[8].lightness = 50.0;
    const ProfileScale scale = TonalScaleOf(TonalView::BestFit, 800, 500);
    EXPECT_EQ(TonalPatchAt(content, scale, scale.XAt(56.0), 200), 7U);
    EXPECT_EQ(TonalPatchAt(content, scale, scale.XAt(54.0), 200), 8U);
    EXPECT_EQ(TonalPatchAt(content, scale, scale.XAt(99.0), 200), 0U) << "the first of many";
    EXPECT_FALSE(TonalPatchAt(content, scale, scale.XAt(54.0), 30));
    EXPECT_FALSE(TonalPatchAt(content, scale, 30, 200));
    content.isLoading = true;
    EXPECT_FALSE(TonalPatchAt(content, scale, scale.XAt(54.0), 200));
}

TEST_F(TonalViewTest, TellsThePatchUnderThePointer)
{
    EXPECT_EQ(TonalPatchText(data, TonalView::BestFit, 2),
        "GS02   L 100.00   R 255.00   G 255.00   B 255.00");
    EXPECT_EQ(TonalPatchText(data, TonalView::Difference, 23),
        "GS23   L 0.90   dR +233.75   dG +0.00   dB +0.00");
    EXPECT_EQ(TonalPatchText(data, TonalView::DynamicRange, 12), "GS12   L 0.90   density 3.00");
}

TEST_F(TonalViewTest, LinesCoincideWhenTheyAreDrawnAsOne)
{
    const auto coincide = [&](TonalView view, const std::vector<std::size_t>& channels) {
        return TonalLinesCoincide(data, view, channels, TonalScaleOf(view, 800, 500));
    };
    EXPECT_FALSE(coincide(TonalView::BestFit, {TonalRed, TonalGreen, TonalBlue}));
    EXPECT_TRUE(coincide(TonalView::BestFit, {TonalGreen, TonalBlue}));
    EXPECT_TRUE(coincide(TonalView::Difference, {TonalRed, TonalGreen}));
    EXPECT_FALSE(coincide(TonalView::Difference, {TonalRed})) << "one is in its own colour";
}

TEST_F(TonalViewTest, TheDarkBeginsAtItsDensity)
{
    EXPECT_NEAR(DensityOfLightness(TonalDarkLightness()), 1.65, 1e-12);
}

TEST_F(TonalViewTest, TablesAndHeadersFollowTheRecord)
{
    const std::string table = TonalPatchTable(data);
    EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), 25);
    EXPECT_NE(table.find("\nGS23     0.90    3.00     2  255.00   0.00   0.00  255.00   0.00   0.00"
                         "  233.75   0.00   0.00\n"),
        std::string::npos)
        << table;
    const std::vector<std::string> header = TonalPlotHeaderLines(data);
    EXPECT_EQ(header.at(1), "Scanner Name:    By hand");
    EXPECT_EQ(header.at(7), "File:            t.con");
    EXPECT_EQ(header.at(9), "Dynamic range");
    EXPECT_EQ(std::count(header.begin(), header.end(), ""), 0) << "such a line ends the printing";
}

} // namespace
} // namespace vireo
