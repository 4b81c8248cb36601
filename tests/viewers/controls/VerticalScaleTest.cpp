#include "viewers/controls/VerticalScale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vireo {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct FitCase {
    double low;
    double high;
    VerticalScale scale;
};

TEST(VerticalScale, FitsValuesBetweenRoundLimits)
{
    const FitCase rows[] = {
        {-1.3, 3.4, {4.0, -2.0, 1.0}},
        {0.0, 12.0, {14.0, -2.0, 2.0}}, // Not on the frame, where a level part is not seen.
        {0.2, 1.5, {1.75, 0.0, 0.25}},
        {-0.07, 0.05, {0.06, -0.08, 0.02}},
        {2990.4, 3004.7, {3005.0, 2990.0, 2.5}},
        {2990.2, 3004.9, {3007.5, 2987.5, 2.5}},
        {7.0, 7.0, {8.0, 6.0, 0.5}},
        {0.0, 0.0, {1.0, -1.0, 0.5}},
    };
    for (const FitCase& row : rows) {
        const VerticalScale scale = VerticalScale::Fitting({row.low, row.high});
        EXPECT_NEAR(scale.top, row.scale.top, 1e-9) << row.low;
        EXPECT_NEAR(scale.bottom, row.scale.bottom, 1e-9) << row.low;
        EXPECT_NEAR(scale.gridStep, row.scale.gridStep, 1e-9) << row.low;
    }
    EXPECT_EQ(VerticalScale::Fitting({}), (VerticalScale{5.0, -5.0, 2.5}));
}

TEST(VerticalScale, FitsWhateverValuesThereAre)
{
    const ValueRange<double> rows[] = {{-kInfinity, kInfinity}, {1e300, 1.7e308}, {-1e39, 5.0},
        {3e9, 3e9}, {1e-300, 2e-300}, {1e25, 1e25}, {-4e-5, 4e-5}};
    for (const ValueRange<double>& row : rows) {
        const VerticalScale scale = VerticalScale::Fitting(row);
        EXPECT_TRUE(scale.IsValid()) << row.lowest;
        EXPECT_LE(scale.GridLines().size(), 101U);
    }
}

TEST(VerticalScale, OnlyASensibleScaleIsValid)
{
    EXPECT_TRUE(VerticalScale().IsValid());
    EXPECT_FALSE((VerticalScale{5.0, 5.0, 1.0}).IsValid());
    EXPECT_FALSE((VerticalScale{-5.0, 5.0, 1.0}).IsValid());
    EXPECT_FALSE((VerticalScale{5.0, -5.0, 0.0}).IsValid());
    EXPECT_FALSE((VerticalScale{kInfinity, -5.0, 1.0}).IsValid());
    EXPECT_FALSE((VerticalScale{5.0, std::nan(""), 1.0}).IsValid());
}

TEST(VerticalScale, GridLinesAreTheMultiplesOfTheStep)
{
    EXPECT_EQ(VerticalScale().GridLines(), (std::vector<double>{-5.0, -2.5, 0.0, 2.5, 5.0}));
    EXPECT_EQ((VerticalScale{3.9, 1.1, 1.0}).GridLines(), (std::vector<double>{2.0, 3.0}));
    EXPECT_TRUE((VerticalScale{5.0, -5.0, 1e-9}).GridLines().empty());
    EXPECT_TRUE((VerticalScale{0.4, 0.1, 1.0}).GridLines().empty());
}

TEST(VerticalScale, ZoomsAboutAValueUpToItsLimits)
{
    const VerticalScale scale = VerticalScale().ZoomedAt(2.0, 2.0);
    EXPECT_DOUBLE_EQ(scale.top, 3.5);
    EXPECT_DOUBLE_EQ(scale.bottom, -1.5);
    EXPECT_EQ(VerticalScale().MovedBy(1.5), (VerticalScale{6.5, -3.5, 2.5}));
    VerticalScale near = scale;
    VerticalScale far = scale;
    for (int i = 0; i < 500; ++i) {
        near = near.ZoomedAt(1.0, 1.25);
        far = far.ZoomedAt(1.0, 0.8);
    }
    EXPECT_TRUE(near.IsValid());
    EXPECT_TRUE(far.IsValid());
}

} // namespace
} // namespace vireo
