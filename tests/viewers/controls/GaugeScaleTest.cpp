#include "viewers/controls/GaugeScale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vireo {
namespace {

// With a half extent of 120 and a full scale of 100, a unit of the scale is 120 / 2 / 3 = 20.
constexpr GaugeScale kScale{200, 120, 100.0};

struct PositionCase {
    const char* name;
    double value;
    int position;
};

class GaugePosition : public testing::TestWithParam<PositionCase> { };

TEST_P(GaugePosition, IsLinearWithinOneAndLogarithmicBeyond)
{
    EXPECT_EQ(kScale.PositionOf(GetParam().value), GetParam().position) << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(Values, GaugePosition,
    testing::Values(PositionCase{"zero in the middle", 0.0, 200},
        PositionCase{"half a unit", 0.5, 190}, PositionCase{"half a unit below", -0.5, 210},
        PositionCase{"the linear part meets", 0.9999, 180}, PositionCase{"the other", 1.0, 180},
        PositionCase{"minus one", -1.0, 220}, PositionCase{"ten", 10.0, 160},
        PositionCase{"full scale half-way up", 100.0, 140},
        PositionCase{"full scale half-way down", -100.0, 260},
        PositionCase{"a rounded place", 2.0, 174}, // 20 x 1.30103 = 26.02
        PositionCase{"the last value on the gauge", 1e5, 80},
        PositionCase{"beyond it stays at the end", 1e9, 80},
        PositionCase{"infinite", -std::numeric_limits<double>::infinity(), 320},
        PositionCase{"no number", std::numeric_limits<double>::quiet_NaN(), 200}));

TEST(GaugeScale, ValueAtIsTheWayBack)
{
    for (int position = 100; position <= 300; ++position)
        EXPECT_EQ(kScale.PositionOf(kScale.ValueAt(position)), position);
}

TEST(GaugeScale, WithoutExtentEverythingIsAtTheCentre)
{
    const GaugeScale flat{7, 0, 100.0};
    EXPECT_EQ(flat.PositionOf(50.0), 7);
    EXPECT_EQ(flat.ValueAt(3), 0.0);
}

TEST(GaugeScale, FullScalesBelowOneFollowTheFormulaWhileItHasAnAnswer)
{
    // log10(0.5) + 1 = 0.69897: 0.5 lies at 0.5 x 50 / 0.69897 = 35.8.
    const GaugeScale half{0, 100, 0.5};
    EXPECT_EQ(half.PositionOf(0.5), -36);
    // log10(0.1) + 1 = 0: everything lies at the ends, zero in the middle.
    const GaugeScale tenth{0, 100, 0.1};
    EXPECT_EQ(tenth.PositionOf(1.0), -100);
    EXPECT_EQ(tenth.PositionOf(0.0), 0);
}

} // namespace
} // namespace vireo
