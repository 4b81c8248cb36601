#include "viewers/startest/StarTestAverage.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vireo {
namespace {

StarTestSweep SweepOf(std::vector<float> average, std::int32_t resolution)
{
    StarTestSweep sweep;
    sweep.SetRows({}, static_cast<std::int32_t>(average.size()));
    sweep.m_XVibrationAverage = std::move(average);
    sweep.m_iResolution = resolution;
    return sweep;
}

TEST(StarTestAverage, MeanAndDeviationOfASample)
{
    const double values[] = {2.0, 4.0, 4.0, 4.0, 5.0, 5.0, 7.0, 9.0};
    EXPECT_DOUBLE_EQ(MeanAndDeviationOf(values).mean, 5.0);
    EXPECT_DOUBLE_EQ(MeanAndDeviationOf(values).deviation, std::sqrt(32.0 / 7.0));
    EXPECT_EQ(MeanAndDeviationOf(std::span(values).first(1)).deviation, 0.0);
    EXPECT_EQ(MeanAndDeviationOf({}).mean, 0.0);
}

TEST(StarTestAverage, AveragesEachSweepOverTheRounds)
{
    std::vector<StarTestSweep> sweeps;
    sweeps.push_back(SweepOf({1, 2, 3}, 300));
    sweeps.push_back(SweepOf({10}, 600));
    sweeps.push_back(SweepOf({3, 4}, 301)); // The second round of the first sweep ends early.
    sweeps.push_back(SweepOf({20}, 601));
    sweeps[0].m_XRestart[1] = 1;
    sweeps[0].m_SpeedTable[2].byteCount = 77;
    sweeps[0].m_iXVib_Start = 5;
    sweeps[0].m_iWideLine_End = 6;
    AppendAverages(sweeps, 2);
    ASSERT_EQ(sweeps.size(), 6U);
    const StarTestSweep& first = sweeps[4];
    EXPECT_TRUE(first.m_bAvgResult);
    EXPECT_EQ(first.m_iResolution, 300);
    EXPECT_EQ(first.LineCount(), 3);
    EXPECT_EQ(first.m_iXVib_Start, 5);
    EXPECT_EQ(first.m_iWideLine_End, 6);
    EXPECT_EQ(first.m_XRestart[1], 1);
    EXPECT_EQ(first.m_SpeedTable[2].byteCount, 77);
    EXPECT_EQ(first.m_XVibrationAverage, (std::vector<float>{2, 3, 3}));
    EXPECT_FLOAT_EQ(first.m_ScanSpeedCurve[0], std::sqrt(2.0F));
    EXPECT_EQ(first.m_ScanSpeedCurve[2], 0.0F);
    EXPECT_EQ(sweeps[5].m_XVibrationAverage, std::vector<float>{15});
    EXPECT_EQ(sweeps[5].m_iResolution, 600);
}

TEST(StarTestAverage, AveragesPoints)
{
    std::vector<StarTestSweep> sweeps(3, SweepOf({0}, 300));
    const double deviations[3][2] = {{1.0, 5.0}, {2.0, 5.0}, {6.0, 5.0}};
    for (std::size_t i = 0; i < 3; ++i) {
        sweeps[i].m_iPointCount = 2;
        sweeps[i].m_Points = {{10, false, deviations[i][0]}, {20, i == 1, deviations[i][1]}};
        sweeps[i].m_iApplicationFactorCount = 0;
    }
    AppendAverages(sweeps, 3);
    ASSERT_EQ(sweeps.size(), 4U);
    const StarTestSweep& average = sweeps[3];
    EXPECT_EQ(average.m_iPointCount, 2);
    EXPECT_EQ(average.m_Points[0].m_iValue, 30);
    EXPECT_DOUBLE_EQ(average.m_Points[0].m_dDeviation, 3.0);
    EXPECT_DOUBLE_EQ(average.m_Points[1].m_dDeviation, 5.0);
    // Behind ten times the points: the square root of ((1 - 3)^2 + (2 - 3)^2 + (6 - 3)^2) / 2.
    EXPECT_DOUBLE_EQ(average.FactorDeviation(), std::sqrt(7.0));
}

TEST(StarTestAverage, RoundsWithoutSweepsGiveNothing)
{
    for (const std::int32_t repeat : {-1, 0, 4, INT32_MAX}) {
        std::vector<StarTestSweep> sweeps(3, SweepOf({0}, 300));
        AppendAverages(sweeps, repeat);
        EXPECT_EQ(sweeps.size(), 3U) << repeat;
    }
}

} // namespace
} // namespace vireo
