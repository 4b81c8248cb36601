#include "viewers/controls/CurveSlots.h"
#include "viewers/controls/ProfileCurve.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace vireo {
namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

TEST(CurveSlots, TellTheRangeOfWhatIsShown)
{
    CurveSlots slots;
    slots.SetCurve(0, "first", 0x0000FF, {1.0, 2.0, kNoNumber, -4.0});
    slots.SetCurve(14, "last", 0xFF0000, {10.0, 20.0});
    slots.Summarise();
    EXPECT_EQ(slots.Points(), 4);
    const auto range = slots.RangeIn({0.0, 4.0});
    EXPECT_EQ(range.lowest, -4.0);
    EXPECT_EQ(range.highest, 20.0);
    EXPECT_EQ(slots.RangeIn({0.5, 2.0}).lowest, 2.0); // Points 1 and 2, of which one is no number.
    slots.At(14).isVisible = false;
    EXPECT_EQ(slots.RangeIn({0.0, 4.0}).highest, 2.0);
    slots.At(0).isVisible = false;
    EXPECT_TRUE(slots.RangeIn({0.0, 4.0}).IsEmpty());
    EXPECT_EQ(slots.ValueAt(0, 3), -4.0);
    EXPECT_EQ(slots.ValueAt(0, 2), std::nullopt);
    EXPECT_EQ(slots.ValueAt(0, 4), std::nullopt);
    EXPECT_EQ(slots.ValueAt(0, -1), std::nullopt);
    slots.Clear();
    EXPECT_EQ(slots.Points(), 0);
    EXPECT_FALSE(slots.At(0).IsUsed());
}

TEST(RangePyramid, FindsTheRangeOfValuesAndLeavesOutWhatIsNoNumber)
{
    std::vector<double> values(5000);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = i % 97 == 0 ? kNoNumber : std::sin(static_cast<double>(i)) * 1e6;
    values[1234] = std::numeric_limits<double>::infinity();
    RangePyramid<double> pyramid;
    pyramid.Build(values);
    for (const auto& [first, end] : {std::pair<std::int64_t, std::int64_t>{0, 5000}, {17, 1234},
             {1200, 1300}, {96, 98}, {97, 98}, {4990, 9999}, {-5, 3}}) {
        double lowest = 1e300, highest = -1e300;
        for (auto i = std::max<std::int64_t>(first, 0); i < std::min<std::int64_t>(end, 5000);
             ++i) {
            const double value = values[static_cast<std::size_t>(i)];
            lowest = value < lowest ? value : lowest;
            highest = value > highest ? value : highest;
        }
        const auto range = pyramid.Range(values, first, end);
        EXPECT_EQ(range.IsEmpty(), lowest > highest) << first;
        if (!range.IsEmpty()) {
            EXPECT_EQ(range.lowest, lowest) << first;
            EXPECT_EQ(range.highest, highest) << first;
        }
    }
}

TEST(ProfileCurve, DrawsLinesBetweenFewValues)
{
    // Values 0, 10 and 0 in the middle of pixels 0 to 2; ten columns a pixel.
    const std::vector<double> values{0.0, 10.0, 0.0, kNoNumber, 5.0};
    const auto curve = InterpolateColumns(values, {0.0, 5.0}, 50);
    ASSERT_EQ(curve.columns.size(), 51U);
    EXPECT_TRUE(curve.columns[3].IsEmpty()); // Left of the first value there is no line.
    EXPECT_NEAR(curve.columns[7].lowest, 2.0, 1e-9);
    EXPECT_NEAR(curve.columns[7].highest, 3.0, 1e-9);
    EXPECT_NEAR(curve.columns[14].highest, 10.0, 1e-9); // The peak lies at 1.5.
    EXPECT_NEAR(curve.columns[15].highest, 10.0, 1e-9);
    EXPECT_TRUE(curve.columns[30].IsEmpty()); // No line to or from what is no number.
    EXPECT_TRUE(curve.columns[40].IsEmpty());
}

} // namespace
} // namespace vireo
