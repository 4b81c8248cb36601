#include "platform/Text.h"
#include "tests/TempFolder.h"
#include "tests/viewers/startest/StarTestFiles.h"
#include "viewers/controls/PictureMark.h"
#include "viewers/startest/StarTestCurves.h"
#include "viewers/startest/StarTestData.h"
#include "viewers/startest/StarTestExport.h"
#include "viewers/startest/StarTestPictures.h"
#include "viewers/startest/StarTestText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vireo {
namespace {

TEST(StarTestFigures, AreThoseOfTheValues)
{
    const float values[] = {3.0F, -4.0F, 0.0F, 5.0F};
    const CurveFigures figures = FiguresOf(values);
    EXPECT_EQ(figures.min, -4.0);
    EXPECT_EQ(figures.max, 5.0);
    EXPECT_EQ(figures.mean, 1.0);
    EXPECT_DOUBLE_EQ(figures.rms, std::sqrt(50.0 / 4.0));
    EXPECT_EQ(FiguresOf({}).rms + FiguresOf({}).min + FiguresOf({}).mean, 0.0);
    const float broken[] = {1.0F, std::numeric_limits<float>::quiet_NaN()};
    EXPECT_EQ(FiguresOf(broken).max, 1.0);
    EXPECT_TRUE(std::isnan(FiguresOf(broken).mean));
    EXPECT_TRUE(std::isnan(FiguresOf(std::span(broken).last(1)).min));
}

class StarTestCurvesTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_EQ(data.Read(folder.Write("star.con", StarTestStart(1) + HandWorkedSweep())),
            StarTestResult::Ok);
        sweep = &data.m_sweeps[0];
    }

    TempFolder folder;
    StarTestData data;
    const StarTestSweep* sweep = nullptr;
};

TEST_F(StarTestCurvesTest, FiguresAreAboutTheEvaluationRange)
{
    EXPECT_EQ(EvaluationRange(*sweep, StarTestField::XLineWidth), (LineRange{1, 5}));
    EXPECT_EQ(EvaluationRange(*sweep, StarTestField::YVibration), (LineRange{1, 4}));
    EXPECT_EQ(EvaluationRange(*sweep, StarTestField::WideLine), (LineRange{0, 6}));
    EXPECT_EQ(EvaluationRange(*sweep, StarTestField::ScanSpeed), (LineRange{0, 6}));
    data.m_sweeps[0].m_iXVib_End = 99;
    data.m_sweeps[0].m_iWideLine_End = 5; // The wide line excludes its end.
    EXPECT_EQ(EvaluationRange(*sweep, StarTestField::XVibration), (LineRange{1, 6}));
    EXPECT_EQ(EvaluationRange(*sweep, StarTestField::WideLineUnsmoothed), (LineRange{0, 5}));
}

TEST_F(StarTestCurvesTest, SlotsOfMeasuredAndAverageRecords)
{
    std::string names;
    for (const StarTestCurve& curve : CurvesOf(*sweep, false))
        names += Format("%s%s%06X,", std::string(curve.name).c_str(), curve.isVisible ? "+" : "-",
            curve.colour);
    EXPECT_EQ(names,
        "X-vib+FF0000,X-vib-avg+646464,Y-vib-00FF00,Y-vib-avg-000000,Wide Line-FF00FF,"
        "Wide L.Org-FF7FFF,Scan Speed-0000FF,X Line Width-FF7F00,Y Line Width-FF7F7F,");
    EXPECT_TRUE(CurvesOf(*sweep, true)[2].isVisible);
    data.m_sweeps[0].m_bAvgResult = true;
    const auto average = CurvesOf(*sweep, true);
    ASSERT_EQ(average.size(), 2U);
    EXPECT_EQ(average[0].name, "X-vib-avg");
    EXPECT_EQ(average[1].name, "Std Dev");
    EXPECT_TRUE(average[0].isVisible && average[1].isVisible);
}

TEST_F(StarTestCurvesTest, ViewsShowWhatBelongsTogether)
{
    CurveSlots slots;
    std::size_t slot = 0;
    for (const StarTestCurve& curve : CurvesOf(*sweep, false))
        slots.SetCurve(slot++, std::string(curve.name), curve.colour, {0.0});
    ASSERT_TRUE(ShowCurves(StarTestViews()[1], slots));
    EXPECT_EQ(slots.Visible(), (CurveSlots::Visibility{false, false, false, false, true, true}));
    ASSERT_TRUE(ShowCurves(StarTestViews()[4], slots));
    const auto all = slots.Visible();
    EXPECT_EQ(std::count(all.begin(), all.end(), true), 9);
    CurveSlots average;
    average.SetCurve(0, "X-vib-avg", 0, {0.0});
    EXPECT_FALSE(ShowCurves(StarTestViews()[3], average));
    EXPECT_TRUE(average.At(0).isVisible);
}

TEST_F(StarTestCurvesTest, TextsOfThePlot)
{
    EXPECT_EQ(SweepListText(*sweep, true), "300 m<");
    data.m_sweeps[0].m_bColour = true;
    EXPECT_EQ(SweepListText(*sweep, false), "300 c ");
    EXPECT_EQ(SweepTitle(data), "Sweep 1 of 1   300 dpi   scan speed 3   6 lines");
    EXPECT_EQ(CursorLineText(1200), "  1200  ");
    EXPECT_EQ(CursorDistanceText(1200, 600), "  5.1 cm ");
    EXPECT_EQ(CursorDistanceText(1200, 0), "  0.0 cm ");
    const auto labels = CentimetreLabels(12'000, 8'000, 600);
    EXPECT_EQ(labels, (std::array<std::string, 5>{"8", "21", "34", "47", "59 cm"}));
    // Left of the first line there is no distance, and without a resolution nowhere.
    EXPECT_EQ(CentimetreLabels(12'000, 3'000, 600)[0], "0");
    EXPECT_EQ(CentimetreLabels(12'000, 3'000, 0)[4], "0 cm");
}

TEST_F(StarTestCurvesTest, TheFactorIsToldWhenItWasWorkedOut)
{
    EXPECT_EQ(ApplicationFactorText(data), "");
    data.m_sweeps[0].m_dApplicationFactor = 3.456;
    data.m_sweeps[0].m_iApplicationFactorCount = 7;
    EXPECT_EQ(ApplicationFactorText(data), "App.Fct.   3.46 (7)");
    data.m_bStandardDeviation = true;
    EXPECT_EQ(ApplicationFactorText(data), "App.Fct.   3.46 (7)");
    data.m_sweeps.resize(4);
    data.m_sweeps[3].m_dApplicationFactor = 1.0;
    data.m_sweeps[3].m_Points.resize(1);
    data.m_sweeps[3].m_Points[0].m_dDeviation = 0.25;
    data.Select(3);
    EXPECT_EQ(ApplicationFactorText(data), "App.Fct.   1.00 (0) (Stddev: 0.25)");
}

TEST_F(StarTestCurvesTest, ExportsTheCurvesOfASweep)
{
    data.m_sweeps[0].m_XVibration[4] = std::numeric_limits<float>::infinity();
    const auto target = folder.Path() / "sweep.csv";
    ASSERT_EQ(ExportSweepAsCsv(target, *sweep), FileStatus::Ok);
    const std::string text = TempFolder::Read(target);
    EXPECT_TRUE(text.starts_with(
        "line,distance_cm,x_vibration,x_vibration_average,y_vibration,y_vibration_average,"
        "wide_line,wide_line_unsmoothed,scan_speed,x_line_width,y_line_width\r\n"
        "0,0,0,0,0,0,-3.8765433,-4,0,4,3\r\n"))
        << text;
    EXPECT_NE(text.find("\r\n4,0.03386666666666667,,0,0,0,"), std::string::npos) << text;
    data.m_sweeps[0].m_bAvgResult = true;
    ASSERT_EQ(ExportSweepAsCsv(target, *sweep), FileStatus::Ok);
    EXPECT_TRUE(
        TempFolder::Read(target).starts_with("line,distance_cm,x_vibration_average,std_dev\r\n"));
}

TEST_F(StarTestCurvesTest, MarksThePictureThatLiesBesideTheFile)
{
    EXPECT_EQ(FindRawPicture(data), std::nullopt);
    EXPECT_NE(DescribeMissingPicture(data).find("StarTest_Raw_00.tif"), std::string::npos);
    std::filesystem::create_directory(folder.Path() / "StarTest");
    const auto inFolder = folder.Write("StarTest/StarTest_Raw_00.tif", "x");
    EXPECT_EQ(FindRawPicture(data), inFolder);
    const auto beside = folder.Write("StarTest_Raw_00.tif", "x");
    EXPECT_EQ(FindRawPicture(data), beside);

    const MarkedPicture marked = MarkPicture(data, beside, 2);
    EXPECT_EQ(marked.middle.column, 98);
    EXPECT_EQ(marked.middle.line, 2);
    // Lines 1 to 3, without the end of the range.
    const std::int64_t expected[][2] = {{7, 49}, {100, 1}, {7, 49}, {98, 2}, {7, 47}, {98, 3}};
    ASSERT_EQ(marked.marks.size(), std::size(expected));
    for (std::size_t i = 0; i < marked.marks.size(); ++i) {
        EXPECT_EQ(marked.marks[i].column, expected[i][0]) << i;
        EXPECT_EQ(marked.marks[i].line, expected[i][1]) << i;
    }
    data.m_sweeps[0].m_XPosition[2] = std::numeric_limits<float>::quiet_NaN();
    data.m_sweeps[0].m_iXVib_End = 1 << 30;
    EXPECT_EQ(MarkPicture(data, beside, 2).middle.column, 0);
    EXPECT_EQ(MarkPicture(data, beside, 99).marks.size(), 10U);
    data.m_sweeps[0].m_bAvgResult = true;
    EXPECT_EQ(FindRawPicture(data), std::nullopt);
    EXPECT_NE(DescribeMissingPicture(data).find("average"), std::string::npos);
}

} // namespace
} // namespace vireo
