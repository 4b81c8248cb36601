#include "scanner/LineRate.h"
#include "scanner/ScanLineAverage.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

ScanLine LineWith(std::vector<std::uint8_t> samples)
{
    ScanLine line;
    line.planes[0] = std::move(samples);
    return line;
}

using Samples = std::vector<std::uint8_t>;

TEST(ScanLineAverage, AveragesTheLastLinesRounded)
{
    ScanLineAverage average;
    average.SetLines(3);
    ScanLine result;
    struct Row {
        Samples line;
        Samples average;
        int used;
    };
    const Row rows[] = {{{0, 255}, {0, 255}, 1}, {{1, 255}, {1, 255}, 2}, {{3, 0}, {1, 170}, 3},
        {{200, 0}, {68, 85}, 3}, {{200, 1}, {134, 0}, 3}};
    for (const Row& row : rows) {
        average.Add(LineWith(row.line), result);
        EXPECT_EQ(result.planes[0], row.average);
        EXPECT_EQ(average.Used(), row.used);
    }
    average.Add(LineWith({9, 9, 9}), result);
    EXPECT_EQ(result.planes[0], (Samples{9, 9, 9})) << "another length begins anew";
    average.Restart();
    average.Add(LineWith({1, 2, 3}), result);
    EXPECT_EQ(result.planes[0], (Samples{1, 2, 3}));
    average.SetLines(0);
    EXPECT_EQ(average.Lines(), 1);
    average.SetLines(100000);
    EXPECT_EQ(average.Lines(), ScanLineAverage::kMostLines);
}

TEST(ScanLineHold, KeepsTheExtremesOfEachPixel)
{
    ScanLineHold hold;
    for (const Samples& samples : {Samples{5, 9}, Samples{7, 1}, Samples{6, 255}})
        hold.Add(LineWith(samples));
    EXPECT_EQ(hold.lowest.planes[0], (Samples{5, 1}));
    EXPECT_EQ(hold.highest.planes[0], (Samples{7, 255}));
    hold.Add(LineWith({4}));
    EXPECT_EQ(hold.highest.planes[0], (Samples{4}));
}

TEST(LineRate, CountsOverHalfASecond)
{
    LineRate rate;
    const LineRate::Time start;
    for (int i = 0; i <= 100; ++i) {
        EXPECT_EQ(rate.PerSecond() > 0.0, i > 50) << i;
        rate.Count(start + std::chrono::milliseconds(10 * i));
    }
    EXPECT_DOUBLE_EQ(rate.PerSecond(), 100.0);
}

} // namespace
} // namespace vireo
