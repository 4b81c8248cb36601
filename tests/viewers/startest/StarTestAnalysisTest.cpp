#include "viewers/startest/StarTestAnalysis.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace vireo {
namespace {

using Floats = std::vector<float>;
using Mask = std::vector<std::int8_t>;

/// Numbers as files hold them, with two decimals.
Floats RandomValues(std::size_t count, int seed, int from = -20'000, int to = 20'000)
{
    std::mt19937 random(static_cast<unsigned>(seed));
    Floats values(count);
    for (float& value : values)
        value = static_cast<float>(
            (from + static_cast<int>(random() % static_cast<unsigned>(to - from))) / 100.0);
    return values;
}

Mask MaskAt(std::size_t count, std::initializer_list<std::size_t> lines)
{
    Mask mask(count, 0);
    for (const std::size_t line : lines)
        mask[line] = 1;
    return mask;
}

TEST(StarTestAnalysis, RangesAreClippedToTheLines)
{
    struct Case {
        std::int64_t first, last;
        LineRange lines;
    };
    const Case rows[] = {{0, 9, {0, 10}}, {3, 5, {3, 6}}, {-5, 4, {0, 5}}, {8, 99, {8, 10}},
        {12, 20, {10, 10}}, {5, 4, {5, 5}}, {5, -3, {5, 5}}, {-9, -2, {0, 0}},
        {INT32_MIN, INT32_MAX, {0, 10}}};
    for (const Case& row : rows)
        EXPECT_EQ(LinesBetween(row.first, row.last, 10), row.lines) << row.first << ' ' << row.last;
}

TEST(StarTestAnalysis, SpeedGoesUpToTheLineOfEachEntry)
{
    Floats speed(10, -1.0F);
    // The second entry lies before the first and has no lines; the last lies behind the sweep.
    ComputeScanSpeed(std::vector<ScanSpeedEntry>{{100, 999, 3}, {200, 999, 2}, {300, 5'000'000, 6},
                         {300, 7, 7}, {250, 1'000'000, 9}, {350, -500'000, 40}},
        speed);
    EXPECT_EQ(speed, (Floats{0, 0, 0, 10, 10, 10, 0, -4, -4, -1}));

    Floats rest(4, -1.0F);
    ComputeScanSpeed(
        std::vector<ScanSpeedEntry>{{INT32_MIN, 0, -5}, {INT32_MAX, INT32_MAX, 2}}, rest);
    EXPECT_FLOAT_EQ(rest[1], static_cast<float>(0.5 / 5000.0));
    EXPECT_EQ(rest[2], -1.0F);
}

TEST(StarTestAnalysis, TheWideLineIsSmoothedOver81Lines)
{
    constexpr int kLines = 300;
    const Floats raw = RandomValues(kLines, 1, 300'000, 310'000);
    Floats smoothed(kLines), unsmoothed(kLines);
    ComputeWideLine(raw, 20, 270, smoothed, unsmoothed);
    for (int i = 0; i < kLines; ++i) {
        if (i < 20 || i >= 270) {
            EXPECT_EQ(smoothed[static_cast<std::size_t>(i)], 0.0F);
            EXPECT_EQ(unsmoothed[static_cast<std::size_t>(i)], 0.0F);
            continue;
        }
        long double sum = 0;
        for (int j = i - 40; j <= i + 40; ++j)
            sum += raw[static_cast<std::size_t>(std::clamp(j, 20, 269))] - raw[145];
        EXPECT_FLOAT_EQ(
            unsmoothed[static_cast<std::size_t>(i)], raw[static_cast<std::size_t>(i)] - raw[145]);
        EXPECT_FLOAT_EQ(smoothed[static_cast<std::size_t>(i)], static_cast<float>(sum / 81)) << i;
    }
}

TEST(StarTestAnalysis, TheMeanLeavesOutFaultsAndForgetsThem)
{
    Floats values(200, 2.0F);
    values[0] = 3e9F;
    values[60] = -2e9F;
    values[80] = 8.1e8F;
    SmoothByMovingMean(values);
    EXPECT_FLOAT_EQ(values[0], 2.0F);
    EXPECT_FLOAT_EQ(values[60], static_cast<float>((80 * 2.0 + 8.1e8) / 81));
    EXPECT_FLOAT_EQ(values[199], 2.0F);
    Floats noNumber(300, 1.0F);
    noNumber[100] = std::numeric_limits<float>::quiet_NaN();
    SmoothByMovingMean(noNumber);
    EXPECT_EQ(noNumber[59], 1.0F);
    EXPECT_TRUE(std::isnan(noNumber[60]) && std::isnan(noNumber[140]));
    EXPECT_EQ(noNumber[141], 1.0F);
}

TEST(StarTestAnalysis, WithoutAMiddleThereIsNoWideLine)
{
    struct Case {
        std::int32_t start, end;
        bool isComputed;
    };
    const Case rows[] = {{0, 1, false}, {0, 2, true}, {-9, 2, true}, {0, 0, false}, {-5, -2, false},
        {9, 500, true}, {10, 10, false}, {INT32_MAX, INT32_MAX, false}, {8, 1, true}};
    for (const Case& row : rows) {
        const Floats raw{1, 2, 4, 8, 16, 32, 64, 128, 256, 512};
        Floats smoothed(10), unsmoothed(10);
        ComputeWideLine(raw, row.start, row.end, smoothed, unsmoothed);
        const bool isChanged = std::ranges::any_of(unsmoothed, [](float v) { return v != 0; });
        // One line alone is its own middle, and a range that ends before its start has no lines.
        const bool hasDifference = row.isComputed && row.end - row.start > 1 && row.start < 9;
        EXPECT_EQ(isChanged, hasDifference) << row.start << ' ' << row.end;
    }
}

TEST(StarTestAnalysis, WidthsLieAboutTheirMean)
{
    const Floats widths = RandomValues(50, 2, 300, 500);
    Floats centred = widths;
    CentreLineWidth(centred, 10, 39);
    long double sum = 0;
    for (std::size_t i = 10; i <= 39; ++i)
        sum += widths[i];
    for (std::size_t i = 0; i < 50; ++i) {
        const bool isInside = i >= 10 && i <= 39;
        EXPECT_FLOAT_EQ(
            centred[i], isInside ? static_cast<float>(widths[i] - sum / 30) : widths[i]);
    }
}

TEST(StarTestAnalysis, VibrationIsTheWayFromTheLastRestart)
{
    constexpr std::size_t kLines = 100;
    const Floats position = RandomValues(kLines, 3, 0, 300'000);
    const Mask restart = MaskAt(kLines, {5, 30, 31, 70});
    Floats vibration(kLines);
    ComputeVibration(position, restart, 10, 90, vibration);
    for (std::size_t i = 0; i < kLines; ++i) {
        std::size_t from = 10;
        for (const std::size_t r : {30, 31, 70})
            from = r <= i ? r : from;
        const double expected = i < 10 || i > 90
            ? 0.0
            : (double{position[i]} - position[from]) + static_cast<double>(i - from);
        EXPECT_EQ(vibration[i], static_cast<float>(expected)) << i;
    }
}

TEST(StarTestAnalysis, VibrationNeedsItsFirstLine)
{
    for (const std::int32_t start : {-1, 4, INT32_MIN, INT32_MAX}) {
        Floats vibration(4);
        ComputeVibration(Floats{5, 7, 9, 11}, Mask(4), start, 3, vibration);
        EXPECT_EQ(vibration, Floats(4)) << start;
    }
    Floats vibration(4);
    ComputeVibration(Floats{5, 7, 9, 11}, Mask(4), 2, INT32_MAX, vibration);
    EXPECT_EQ(vibration, (Floats{0, 0, 0, 3}));
}

TEST(StarTestAnalysis, OnlyStretchesBetweenRestartsAreCompensated)
{
    constexpr std::size_t kLines = 60;
    const Floats wide = RandomValues(kLines, 4);
    const Floats before = RandomValues(kLines, 5);
    // Restarts outside of lines 12 to 50 do not count.
    const Mask restart = MaskAt(kLines, {3, 11, 20, 31, 40, 51, 55});
    Floats vibration = before;
    std::fill(vibration.begin(), vibration.begin() + 12, 0.0F);
    vibration[9] = 5.0F;
    Floats expected = vibration;
    for (const auto& [a, b] : {std::pair<std::size_t, std::size_t>{20, 31}, {31, 40}})
        for (std::size_t j = a; j < b; ++j)
            expected[j] = static_cast<float>(vibration[j] - (double{wide[j]} - wide[(a + b) / 2]));
    CompensateForWideLine(wide, restart, vibration);
    EXPECT_EQ(vibration, expected);
}

TEST(StarTestAnalysis, TheLastLineThatIsCompensatedIsTheTenthFromTheEnd)
{
    Floats wide(40);
    wide[29] = 8.0F;
    Floats vibration(40, 1.0F);
    CompensateForWideLine(wide, MaskAt(40, {10, 30}), vibration);
    EXPECT_EQ(vibration[29], -7.0F);
    vibration.assign(40, 1.0F);
    CompensateForWideLine(wide, MaskAt(40, {10, 31}), vibration);
    EXPECT_EQ(vibration, Floats(40, 1.0F));
    for (const std::size_t lines : {0U, 1U, 10U, 19U, 20U}) {
        Floats few(lines, 1.0F);
        CompensateForWideLine(Floats(lines, 3.0F), Mask(lines, 1), few);
        EXPECT_EQ(few, Floats(lines, 1.0F));
    }
}

/// The same fit by the sums of its normal equations.
LineFit FitBySums(const Floats& values, std::size_t first)
{
    long double n = 0, x = 0, y = 0, xx = 0, xy = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto at = static_cast<long double>(first + i);
        n += 1;
        x += at;
        y += values[i];
        xx += at * at;
        xy += at * values[i];
    }
    const long double slope = (n * xy - x * y) / (n * xx - x * x);
    return {static_cast<double>(slope), static_cast<double>((y - slope * x) / n)};
}

TEST(StarTestAnalysis, FitsTheLineOfLeastSquares)
{
    for (const std::size_t count : {2U, 3U, 50U, 5000U}) {
        const Floats values = RandomValues(count, static_cast<int>(count));
        const LineFit fit = FitLine(values, 1234);
        const LineFit other = FitBySums(values, 1234);
        EXPECT_NEAR(fit.slope, other.slope, 1e-9 * std::abs(other.slope)) << count;
        EXPECT_NEAR(fit.At(1300), other.At(1300), 1e-7) << count;
    }
    EXPECT_EQ(FitLine(Floats{7}, 99).At(99), 7.0);
    EXPECT_EQ(FitLine(Floats{}, 99).At(99), 0.0);
}

TEST(StarTestAnalysis, TheTrendGoesPieceByPiece)
{
    constexpr std::size_t kLines = 120;
    // Straight lines, another one after each restart and each stop, come out as nothing.
    const Mask restart = MaskAt(kLines, {30, 31, 90});
    Floats speed(kLines, 20.0F);
    std::fill(speed.begin() + 60, speed.begin() + 70, 1.99F);
    speed[100] = 2.0F; // A tenth is no stop.
    Floats vibration(kLines);
    for (std::size_t i = 0; i < kLines; ++i) {
        const std::size_t piece = i < 30 ? 0 : i < 31 ? 1 : i < 60 ? 2 : i < 90 ? 3 : 4;
        vibration[i] = static_cast<float>(
            0.5 * static_cast<double>(piece * i) - 40.0 * static_cast<double>(piece * piece));
    }
    Floats average(kLines, -1.0F);
    DetrendVibration(vibration, restart, speed, {10, 110}, average);
    for (std::size_t i = 0; i < kLines; ++i)
        EXPECT_NEAR(average[i], i < 10 || i >= 110 ? -1.0 : 0.0, 1e-5) << i;

    vibration[45] += 3.0F;
    DetrendVibration(vibration, restart, speed, {10, 110}, average);
    EXPECT_GT(average[45], 2.5F);
    EXPECT_NEAR(average[59], average[31], 0.4);
    EXPECT_NEAR(average[60], 0.0, 1e-5);
}

TEST(StarTestAnalysis, AveragesNeedARangeInsideTheSweep)
{
    struct Case {
        std::int32_t start, end;
        std::size_t xLines, yLines; ///< Lines with an average: Y has one more.
    };
    const Case rows[] = {{1, 18, 17, 18}, {0, 18, 0, 0}, {1, 20, 0, 0}, {1, 19, 18, 19},
        {5, 4, 0, 0}, {5, 5, 0, 1}, {-3, 5, 0, 0}, {25, 19, 0, 0}};
    for (const Case& row : rows) {
        StarTestSweep sweep;
        std::vector<StarTestRow> lines(20);
        std::mt19937 random(3); // NOLINT: the same numbers each time.
        for (StarTestRow& line : lines)
            line.xPosition = line.yPosition = static_cast<float>(random() % 1000);
        sweep.SetRows(lines, 20);
        sweep.m_iXVib_Start = sweep.m_iYVib_Start = row.start;
        sweep.m_iXVib_End = sweep.m_iYVib_End = row.end;
        AnalyseSweep(sweep);
        const auto changed = [](const Floats& values) {
            return static_cast<std::size_t>(
                std::ranges::count_if(values, [](float v) { return v != 0.0F; }));
        };
        // A single value is its own line.
        EXPECT_EQ(changed(sweep.m_XVibrationAverage), row.xLines) << row.start << ' ' << row.end;
        EXPECT_EQ(changed(sweep.m_YVibrationAverage), row.yLines == 1 ? 0 : row.yLines);
    }
}

} // namespace
} // namespace vireo
