#include "viewers/controls/AxisTicks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vireo {
namespace {

std::string Texts(const std::vector<AxisTick>& ticks)
{
    std::string texts;
    for (const AxisTick& tick : ticks)
        texts += (texts.empty() ? "" : " ") + tick.text;
    return texts;
}

struct TextCase {
    const char* name;
    double low;
    double high;
    int most;
    const char* texts;
};

class AxisTickTexts : public testing::TestWithParam<TextCase> { };

TEST_P(AxisTickTexts, AreThoseAPersonWouldChoose)
{
    const TextCase& row = GetParam();
    EXPECT_EQ(Texts(AxisTicks(row.low, row.high, row.most)), row.texts) << row.name;
}

INSTANTIATE_TEST_SUITE_P(Ranges, AxisTickTexts,
    testing::Values(TextCase{"byte values", 0, 255, 6, "0 50 100 150 200 250"},
        TextCase{"percent, both ends", 0, 100, 11, "0 10 20 30 40 50 60 70 80 90 100"},
        TextCase{"one tick too many takes the wider step", 0, 100, 10, "0 20 40 60 80 100"},
        TextCase{"tenths have one decimal", 0, 1, 6, "0.0 0.2 0.4 0.6 0.8 1.0"},
        TextCase{"hundredths", 0.95, 1.05, 5, "0.96 0.98 1.00 1.02 1.04"},
        TextCase{"across zero has no minus zero", -5, 5, 5, "-4 -2 0 2 4"},
        TextCase{"reversed", 5, -5, 3, "-5 0 5"},
        TextCase{"pixels of a long line", 100000, 400000, 4, "100000 200000 300000 400000"},
        TextCase{"far from zero", 61203.5, 61204.75, 3, "61203.5 61204.0 61204.5"},
        TextCase{"two of a coarse step", 51, 99, 2, "60 80"},
        TextCase{"leapt over by the step that fits", 51, 99, 1, "60"},
        TextCase{"one tick", 3, 7, 1, "5"},
        TextCase{"a limit off by its last bits counts", 0.1 + 0.2, 0.7, 5, "0.3 0.4 0.5 0.6 0.7"},
        TextCase{"beyond ten digits", 0, 4e12, 5, "0 1e+12 2e+12 3e+12 4e+12"},
        TextCase{"one value", 7.5, 7.5, 5, "7.5"}, TextCase{"no room", 0, 1, 0, ""}));

TEST(AxisTicks, OfNoNumbersAreNone)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(AxisTicks(nan, 1.0, 5).empty());
    EXPECT_TRUE(AxisTicks(0.0, infinite, 5).empty());
    EXPECT_TRUE(MinorAxisTicks(-infinite, nan, 5).empty());
}

TEST(AxisTicks, HoldForEveryRange)
{
    // Limits from one denormal to the largest double, on both sides of zero.
    std::vector<double> limits{0.0};
    for (int exponent = -320; exponent <= 308; exponent += 12) {
        limits.push_back(1.7 * std::pow(10.0, exponent));
        limits.push_back(-limits.back());
    }
    for (const double low : limits) {
        for (const double high : limits) {
            for (const int most : {1, 2, 3, 17}) {
                const auto ticks = AxisTicks(low, high, most);
                ASSERT_GE(ticks.size(), 1u) << low << " to " << high;
                ASSERT_LE(ticks.size(), static_cast<std::size_t>(most));
                const double slack = std::abs(high / most - low / most) * 1e-6;
                double before = -std::numeric_limits<double>::infinity();
                for (const AxisTick& tick : ticks) {
                    ASSERT_GE(tick.value, std::min(low, high) - slack);
                    ASSERT_LE(tick.value, std::max(low, high) + slack);
                    ASSERT_GT(tick.value, before);
                    before = tick.value;
                }
            }
        }
    }
}

TEST(AxisTicks, MinorOnesLieBetween)
{
    EXPECT_EQ(MinorAxisTicks(0.0, 0.4, 3).size(), 6u); // Quarters of 0.2.
    EXPECT_EQ(MinorAxisTicks(0.0, 10.0, 3), (std::vector<double>{1, 2, 3, 4, 6, 7, 8, 9}));
    EXPECT_EQ(MinorAxisTicks(0.0, 1.0, 2).size(), 4u); // Fifths of 1.
    EXPECT_TRUE(MinorAxisTicks(3.0, 3.0, 5).empty());
}

} // namespace
} // namespace vireo
