#include "viewers/noise/NoiseMarkLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace vireo {
namespace {

NoisePlane PlaneOf(std::vector<std::uint8_t> samples, int average)
{
    NoisePlane plane;
    plane.trace.samples = std::move(samples);
    plane.trace.pyramid.Build(plane.trace.samples);
    plane.average = average;
    plane.dips = FindNoiseMarks(plane.trace.samples, plane.Band(), NoiseMarkKind::Dip);
    plane.peaks = FindNoiseMarks(plane.trace.samples, plane.Band(), NoiseMarkKind::Peak);
    return plane;
}

/// A plot 512 high and `width` wide, of the whole line.
ProfileScale ScaleOver(const NoisePlane& plane, double width)
{
    ProfileScale scale;
    scale.view = ProfileView::Whole(std::ssize(plane.trace.samples));
    scale.high = 256.0;
    scale.left = 40.0;
    scale.top = 20.0;
    scale.width = width;
    scale.height = 512.0;
    return scale;
}

TEST(NoiseMarkLayoutTest, TipsStandAtTheDipAndPeaksAtTheAverage)
{
    std::vector<std::uint8_t> line(1000, 100);
    line[200] = 60;
    line[700] = 150;
    const NoisePlane plane = PlaneOf(line, 100);
    const auto marks = PlaceNoiseMarks(plane, ScaleOver(plane, 500.0));
    ASSERT_EQ(marks.size(), 2U);
    EXPECT_EQ(marks[0].index, 200);
    EXPECT_EQ(marks[0].deviation, 40);
    EXPECT_DOUBLE_EQ(marks[0].x, 40.0 + 200.5 / 2.0);
    EXPECT_DOUBLE_EQ(marks[0].y, 20.0 + (255 - 60) * 2.0);
    EXPECT_EQ(marks[1].kind, NoiseMarkKind::Peak);
    EXPECT_DOUBLE_EQ(marks[1].y, 20.0 + (255 - 100) * 2.0);
}

TEST(NoiseMarkLayoutTest, KeepsTheFarthestMarkOfEachUnitOfTheWidth)
{
    std::mt19937 random(5);
    std::vector<std::uint8_t> line(40000);
    for (std::uint8_t& sample : line)
        sample = static_cast<std::uint8_t>(std::uniform_int_distribution(60, 140)(random));
    const NoisePlane plane = PlaneOf(line, 100);
    const ProfileScale scale = ScaleOver(plane, 400.0);
    const auto placed = PlaceNoiseMarks(plane, scale);
    EXPECT_LE(placed.size(), 802U);
    for (const NoiseMarkKind kind : {NoiseMarkKind::Dip, NoiseMarkKind::Peak}) {
        // The farthest of each column, mark by mark; the first of equals.
        std::vector<std::int32_t> expected;
        int column = -1;
        for (const std::int32_t mark : plane.Marks(kind)) {
            const int value = line[static_cast<std::size_t>(mark)];
            if (mark / 100 != column)
                expected.push_back(mark);
            else if (std::abs(value - 100)
                > std::abs(line[static_cast<std::size_t>(expected.back())] - 100))
                expected.back() = mark;
            column = mark / 100;
        }
        std::vector<std::int32_t> found;
        for (const PlacedNoiseMark& mark : placed)
            if (mark.kind == kind)
                found.push_back(mark.index);
        EXPECT_EQ(found, expected);
    }
}

TEST(NoiseMarkLayoutTest, LabelsNeverCoverEachOtherNorLeaveThePlot)
{
    std::mt19937 random(9);
    std::vector<std::uint8_t> line(3000, 100);
    for (int dip = 0; dip < 150; ++dip)
        line[static_cast<std::size_t>(std::uniform_int_distribution(0, 2999)(random))] =
            static_cast<std::uint8_t>(std::uniform_int_distribution(0, 90)(random));
    const NoisePlane plane = PlaneOf(line, 100);
    const ProfileScale scale = ScaleOver(plane, 900.0);
    const NoiseLabelMetrics metrics{
        [](const std::string& text) { return 7.0 * static_cast<double>(text.size()); }, 14.0};
    const auto marks = PlaceNoiseMarks(plane, scale);
    const auto labels =
        PlaceNoiseLabels(marks, {3000, 8.5, PositionUnit::ScanUnit}, scale, metrics);
    EXPECT_GT(labels.size(), 40U);
    for (std::size_t i = 0; i < labels.size(); ++i) {
        EXPECT_GE(labels[i].left, scale.left);
        EXPECT_LE(labels[i].left + labels[i].width, scale.Right());
        EXPECT_GE(labels[i].top, scale.top);
        EXPECT_LE(labels[i].top + metrics.height, scale.Bottom());
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_TRUE(labels[i].left >= labels[j].left + labels[j].width
                || labels[j].left >= labels[i].left + labels[i].width
                || labels[i].top >= labels[j].top + metrics.height
                || labels[j].top >= labels[i].top + metrics.height);
    }
}

TEST(NoiseMarkLayoutTest, LabelsStandBelowTheirTrianglesWhereThereIsRoom)
{
    std::vector<std::uint8_t> line(1000, 100);
    line[500] = 50;
    line[502] = 50; // Its label is moved on by a line.
    line[900] = 2;  // No room below: above the tip.
    const NoisePlane plane = PlaneOf(line, 100);
    const ProfileScale scale = ScaleOver(plane, 1000.0);
    const NoiseLabelMetrics metrics{[](const std::string&) { return 20.0; }, 14.0};
    const auto labels = PlaceNoiseLabels(
        PlaceNoiseMarks(plane, scale), {1000, 8.5, PositionUnit::Inch}, scale, metrics);
    ASSERT_EQ(labels.size(), 3U);
    EXPECT_DOUBLE_EQ(labels[0].top, 20.0 + (255 - 2) * 2.0 - 2.0 - 14.0);
    EXPECT_DOUBLE_EQ(labels[1].top, 20.0 + (255 - 50) * 2.0 + 22.0);
    EXPECT_DOUBLE_EQ(labels[1].left, 40.0 + 500.5 - 10.0);
    EXPECT_DOUBLE_EQ(labels[2].top, labels[1].top + 14.0);
}

} // namespace
} // namespace vireo
