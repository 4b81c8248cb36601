#include "viewers/noise/NoiseMarks.h"

#include <gtest/gtest.h>

#include <random>

namespace vireo {
namespace {

constexpr NoiseMarkKind kBothKinds[] = {NoiseMarkKind::Dip, NoiseMarkKind::Peak};

/// The rule as it is told, pixel by pixel: a run is closed by the first pixel that is inside again,
/// or by the end of the stretch.
std::vector<std::int32_t> WalkedMarks(
    const std::vector<std::uint8_t>& line, int average, NoiseMarkKind kind, int first, int end)
{
    const double factor = kind == NoiseMarkKind::Dip ? 0.95 : 1.05;
    const int limit = static_cast<int>(factor * average);
    const auto isBeyond = [&](int a, int b) { return kind == NoiseMarkKind::Dip ? a < b : a > b; };
    std::vector<std::int32_t> marks;
    int extreme = -1;
    for (int i = first; i < end; ++i) {
        const int value = line[static_cast<std::size_t>(i)];
        const bool isOutside = isBeyond(value, limit);
        if (isOutside && (extreme < 0 || isBeyond(value, line[static_cast<std::size_t>(extreme)])))
            extreme = i;
        if (extreme >= 0 && (!isOutside || i + 1 == end)) {
            marks.push_back(extreme);
            extreme = -1;
        }
    }
    return marks;
}

std::vector<std::int32_t> MarksIn(const std::vector<std::uint8_t>& line, int average,
    NoiseMarkKind kind, std::int64_t first, std::int64_t end)
{
    const NoiseBand band{average};
    const auto whole = FindNoiseMarks(line, band, kind);
    const NoiseMarksInView view(line, whole, band, kind, first, end);
    std::vector<std::int32_t> marks;
    for (std::size_t i = 0; i < view.Count(); ++i)
        marks.push_back(view.At(i));
    return marks;
}

TEST(NoiseBandTest, LimitsAreTheWholePartsOfTheBand)
{
    for (int average = 0; average <= 255; ++average) {
        const NoiseBand band{average};
        EXPECT_EQ(band.Limit(NoiseMarkKind::Dip), static_cast<int>(band.Lower())) << average;
        EXPECT_EQ(band.Limit(NoiseMarkKind::Peak), static_cast<int>(band.Upper())) << average;
    }
    EXPECT_EQ(NoiseBand{}.Limit(NoiseMarkKind::Dip), 190);
    EXPECT_EQ(NoiseBand{}.Limit(NoiseMarkKind::Peak), 210);
}

TEST(NoiseMarksTest, MarksTheFirstExtremeOfEachRun)
{
    std::vector<std::uint8_t> line(120, 100);
    line[10] = 94; // below 95
    line[20] = 95; // at the limit: inside
    line[30] = line[32] = line[33] = 80;
    line[31] = 90;
    line[50] = 106;
    line[60] = 105; // at the limit
    line[119] = 10; // not closed by the line
    EXPECT_EQ(
        FindNoiseMarks(line, {100}, NoiseMarkKind::Dip), (std::vector<std::int32_t>{10, 30, 119}));
    EXPECT_EQ(FindNoiseMarks(line, {100}, NoiseMarkKind::Peak), (std::vector<std::int32_t>{50}));
}

TEST(NoiseMarksTest, ALineOf100PixelsHasNone)
{
    for (const std::size_t pixels : {100U, 101U}) {
        std::vector<std::uint8_t> line(pixels, 100);
        line[40] = 0;
        EXPECT_EQ(FindNoiseMarks(line, {100}, NoiseMarkKind::Dip).size(), pixels == 101 ? 1U : 0U);
    }
}

TEST(NoiseMarksTest, AStretchCutsRunsAtItsEnds)
{
    std::vector<std::uint8_t> line(200, 100);
    std::fill(line.begin() + 50, line.begin() + 150, std::uint8_t{80});
    line[70] = 60;
    line[120] = 50;
    const auto dips = [&](std::int64_t first, std::int64_t end) {
        return MarksIn(line, 100, NoiseMarkKind::Dip, first, end);
    };
    using Marks = std::vector<std::int32_t>;
    EXPECT_EQ(dips(0, 200), (Marks{120}));
    EXPECT_EQ(dips(0, 100), (Marks{70}));
    EXPECT_EQ(dips(0, 70), (Marks{50}));
    EXPECT_EQ(dips(130, 200), (Marks{130}));
    EXPECT_EQ(dips(80, 110), (Marks{80})) << "cut at both ends";
    EXPECT_EQ(dips(150, 200), Marks{}) << "begins just behind the run";
    EXPECT_EQ(dips(0, 50), Marks{});
    EXPECT_EQ(dips(-5, 500), (Marks{120})) << "clipped to the line";
    EXPECT_EQ(dips(90, 90), Marks{});
}

/// Lines whose runs are short, long, many and few, against the walk.
TEST(NoiseMarksTest, FindsWhatTheWalkFinds)
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        const int length = std::uniform_int_distribution(101, 900)(random);
        const int longestRun = 1 << (round % 9);
        const int spread = 1 + round % 40;
        std::vector<std::uint8_t> line;
        while (static_cast<int>(line.size()) < length) {
            const int run = std::uniform_int_distribution(1, longestRun)(random);
            const int level = std::uniform_int_distribution(120 - spread, 120 + spread)(random);
            for (int i = 0; i < run; ++i)
                line.push_back(static_cast<std::uint8_t>(level + i % 2));
        }
        line.resize(static_cast<std::size_t>(length));
        const int end = std::uniform_int_distribution(0, length)(random);
        const int first = std::uniform_int_distribution(0, end)(random);
        for (const NoiseMarkKind kind : kBothKinds) {
            EXPECT_EQ(FindNoiseMarks(line, {120}, kind), WalkedMarks(line, 120, kind, 0, length));
            EXPECT_EQ(
                MarksIn(line, 120, kind, first, end), WalkedMarks(line, 120, kind, first, end));
        }
    }
}

TEST(NoiseMarksTest, FindsTheFirstMarkFromAPixelOn)
{
    // Ten dips, the first and the last cut by the stretch.
    std::vector<std::uint8_t> line(200, 100);
    for (std::size_t i = 0; i < line.size(); ++i)
        line[i] = i % 20 < 4 ? 50 : 100;
    const NoiseBand band{100};
    const auto whole = FindNoiseMarks(line, band, NoiseMarkKind::Dip);
    const NoiseMarksInView view(line, whole, band, NoiseMarkKind::Dip, 2, 182);
    ASSERT_EQ(view.Count(), 10U);
    EXPECT_EQ(view.At(0), 2);
    EXPECT_EQ(view.At(9), 180);
    for (int pixel = -1; pixel <= 200; ++pixel) {
        std::size_t expected = 0;
        while (expected < view.Count() && view.At(expected) < pixel)
            ++expected;
        EXPECT_EQ(view.FirstFrom(pixel), expected) << pixel;
    }
}

} // namespace
} // namespace vireo
