#include "viewers/controls/LinePyramid.h"
#include "viewers/controls/ProfileCurve.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace vireo {
namespace {

std::vector<std::uint8_t> Noise(std::size_t length, unsigned seed)
{
    std::mt19937 random(seed);
    std::vector<std::uint8_t> samples(length);
    for (std::uint8_t& sample : samples)
        sample = static_cast<std::uint8_t>(random() % 200 + 20);
    return samples;
}

class LinePyramidLengths : public testing::TestWithParam<std::size_t> { };

TEST_P(LinePyramidLengths, FindsWhatASearchFinds)
{
    const std::vector<std::uint8_t> samples = Noise(GetParam(), 7);
    LinePyramid pyramid;
    pyramid.Build(samples);
    std::mt19937 random(11);
    const auto length = static_cast<std::int64_t>(samples.size());
    for (int i = 0; i < 2000; ++i) {
        auto first = static_cast<std::int64_t>(random() % (samples.size() + 3)) - 1;
        auto end = static_cast<std::int64_t>(random() % (samples.size() + 3)) - 1;
        if (i % 4 != 0 && first > end)
            std::swap(first, end);
        const SampleRange range = pyramid.Range(samples, first, end);
        const auto from = std::clamp<std::int64_t>(first, 0, length);
        const auto to = std::clamp<std::int64_t>(end, 0, length);
        if (from >= to) {
            EXPECT_TRUE(range.IsEmpty());
            continue;
        }
        const auto [low, high] = std::minmax_element(samples.begin() + from, samples.begin() + to);
        ASSERT_EQ(range.lowest, *low) << first << " to " << end;
        ASSERT_EQ(range.highest, *high) << first << " to " << end;
    }
}

INSTANTIATE_TEST_SUITE_P(Lengths, LinePyramidLengths,
    testing::Values(0, 1, 15, 16, 17, 255, 256, 257, 4096, 4097, 70001));

TEST(ProfileCurve, KeepsASpikeOfOnePixelAtEveryPlaceAndZoom)
{
    std::vector<std::uint8_t> samples(10000, 100);
    const std::vector<std::int64_t> spikes = {0, 1, 4999, 5000, 9998, 9999};
    for (const std::int64_t spike : spikes)
        samples[static_cast<std::size_t>(spike)] = 250;
    LinePyramid pyramid;
    pyramid.Build(samples);
    for (const double length : {10000.0, 7777.7, 1200.3}) {
        for (const std::int64_t spike : spikes) {
            const ProfileView view =
                ProfileView{static_cast<double>(spike) - length / 3.0, length}.Within(10000);
            const CurveColumns curve = SumUpColumns(samples, pyramid, view, 311);
            const auto column = static_cast<std::size_t>(
                (static_cast<double>(spike) + 0.5 - curve.firstPixel) / curve.pixelsPerColumn);
            ASSERT_LT(column, curve.columns.size());
            EXPECT_EQ(curve.columns[column].highest, 250) << spike << " in " << length;
            EXPECT_EQ(curve.columns[column].lowest, 100) << spike << " in " << length;
        }
    }
}

TEST(ProfileCurve, LeavesNoGapBetweenColumns)
{
    // A staircase: each column must reach the next one's first value.
    std::vector<std::uint8_t> samples;
    for (int step = 0; step < 20; ++step)
        samples.insert(samples.end(), 50, static_cast<std::uint8_t>(10 * step));
    LinePyramid pyramid;
    pyramid.Build(samples);
    const CurveColumns curve = SumUpColumns(samples, pyramid, {0.0, 1000.0}, 20);
    for (std::size_t i = 0; i + 1 < 20; ++i) {
        EXPECT_EQ(curve.columns[i].lowest, 10 * i);
        EXPECT_EQ(curve.columns[i].highest, 10 * (i + 1));
    }
}

TEST(ProfileCurve, KeepsItsColumnsWhenPanned)
{
    const std::vector<std::uint8_t> samples = Noise(50000, 3);
    LinePyramid pyramid;
    pyramid.Build(samples);
    const CurveColumns before = SumUpColumns(samples, pyramid, {1000.0, 8000.0}, 800);
    const CurveColumns after = SumUpColumns(samples, pyramid, {1057.0, 8000.0}, 800);
    // 57 pixels are 5 columns of 10 and a part, so column i + 5 then is column i now.
    EXPECT_DOUBLE_EQ(after.firstPixel, before.firstPixel + 50.0);
    for (std::size_t i = 0; i < 795; ++i) {
        EXPECT_EQ(after.columns[i].lowest, before.columns[i + 5].lowest);
        EXPECT_EQ(after.columns[i].highest, before.columns[i + 5].highest);
    }
}

TEST(ProfileCurve, HandsOutTheSamplesInViewAndTheirNeighbours)
{
    const std::vector<std::uint8_t> samples = Noise(100, 5);
    const CurveSamples middle = SamplesInView(samples, {10.2, 5.0});
    EXPECT_EQ(middle.first, 9);
    EXPECT_EQ(middle.samples.size(), 8U); // 9 to 16: 15.2 lies in 15, and one more
    EXPECT_EQ(SamplesInView(samples, {0.0, 100.0}).samples.size(), 100U);
    EXPECT_TRUE(SamplesInView(std::span<const std::uint8_t>(), {0.0, 8.0}).samples.empty());
}

} // namespace
} // namespace vireo
