#include "viewers/tonal/TonalFormulas.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <vector>

namespace vireo {
namespace {

TEST(TonalFormulas, LightnessIsThatOfTheCie)
{
    // Published pairs: 18 % gray, white, and the two ends of the straight part.
    EXPECT_NEAR(LightnessOfLinear(0.18), 49.4961, 5e-5);
    EXPECT_NEAR(LightnessOfLinear(1.0), 100.0, 1e-12);
    EXPECT_NEAR(LightnessOfLinear(0.008856), 7.9996248, 1e-9);
    EXPECT_NEAR(LightnessOfLinear(0.002), 1.8066, 1e-12);
    EXPECT_EQ(LightnessOfLinear(0.0), 0.0);
    EXPECT_NEAR(LinearOfLightness(50.0), 0.184187, 5e-7);
    EXPECT_NEAR(DensityOfLightness(100.0), 0.0, 1e-12);
    EXPECT_NEAR(DensityOfLightness(0.9033), 3.0, 1e-12);
    EXPECT_TRUE(std::isinf(DensityOfLightness(0.0)));
}

// Worked out to 60 digits and rounded once; several C libraries are one digit off at these.
TEST(TonalFormulas, DensityIsRightToTheLastDigit)
{
    EXPECT_EQ(DensityOfLightness(91.5), 0.09914857492588305);
    EXPECT_EQ(DensityOfLightness(87.47000122070312), 0.14893060504862965);
    EXPECT_EQ(DensityOfLightness(83.44999694824219), 0.20055964528013442);
    EXPECT_EQ(DensityOfLightness(59.29999923706055), 0.5629890522794664);
}

TEST(TonalFormulas, LightnessGoesThereAndBack)
{
    for (double lightness = 0.0; lightness <= 100.0; lightness += 0.125) {
        const double root = (lightness + 16.0) / 116.0;
        const double linear = lightness > 7.9996248 ? root * root * root : lightness / 903.3;
        EXPECT_NEAR(LinearOfLightness(lightness), linear, 1e-15) << lightness;
        EXPECT_NEAR(LightnessOfLinear(linear), lightness, 1e-9) << lightness;
    }
}

TEST(TonalFormulas, ScanValuesSpreadLightnessOver255)
{
    EXPECT_EQ(ScanValue(0.0), 0.0);
    EXPECT_NEAR(ScanValue(255.0), 255.0, 1e-12);
    for (const double mean : {3.0, 20.0, 128.0, 200.5}) {
        const double linear = std::exp(2.2 * std::log(mean / 255.0));
        const double lightness =
            linear > 0.008856 ? 116.0 * std::cbrt(linear) - 16.0 : 903.3 * linear;
        EXPECT_NEAR(ScanValue(mean), 2.55 * lightness, 1e-11) << mean;
    }
    EXPECT_EQ(ScanValue(-1.0), 0.0) << "no power of a negative number";
}

/// The fit by deviations from the means instead of by sums.
LineFit CentredFit(const std::vector<double>& x, const std::vector<double>& y)
{
    const auto n = static_cast<double>(x.size());
    const double meanX = std::accumulate(x.begin(), x.end(), 0.0) / n;
    const double meanY = std::accumulate(y.begin(), y.end(), 0.0) / n;
    double xx = 0.0;
    double yy = 0.0;
    double xy = 0.0;
    for (std::size_t i = 0; i < x.size(); ++i) {
        xx += (x[i] - meanX) * (x[i] - meanX);
        yy += (y[i] - meanY) * (y[i] - meanY);
        xy += (x[i] - meanX) * (y[i] - meanY);
    }
    const double coefficient = xy / std::sqrt(xx * yy);
    return {xy / xx, meanY - xy / xx * meanX, coefficient * coefficient};
}

TEST(TonalFormulas, FitsTheLineOfLeastSquares)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> jitter(-20.0, 20.0);
    for (int round = 0; round < 50; ++round) {
        std::vector<double> x;
        std::vector<double> y;
        for (int i = 0; i < 24; ++i) {
            x.push_back(4.0 * i + 0.1 * jitter(random));
            y.push_back(250.0 - 2.5 * x.back() + jitter(random));
        }
        const LineFit fit = FitLine(x, y);
        const LineFit expected = CentredFit(x, y);
        EXPECT_NEAR(fit.slope, expected.slope, 1e-11);
        EXPECT_NEAR(fit.offset, expected.offset, 1e-9);
        EXPECT_NEAR(fit.correlation, expected.correlation, 1e-11);
    }
}

TEST(TonalFormulas, PointsWithoutASlopeGiveTheirMean)
{
    const std::array x{50.0, 50.0};
    const std::array y{10.0, 30.0};
    const LineFit upright = FitLine(x, y);
    EXPECT_EQ(upright.slope, 0.0);
    EXPECT_EQ(upright.offset, 20.0);
    EXPECT_EQ(upright.correlation, 0.0);
    const LineFit level = FitLine(y, x);
    EXPECT_EQ(level.offset, 50.0);
    EXPECT_EQ(level.correlation, 0.0) << "no variance to explain";
}

TEST(TonalFormulas, BitsFreeOfNoiseAreThoseOfTheSamples)
{
    std::mt19937 random(5);
    std::uniform_int_distribution<int> level(180, 220);
    std::vector<double> samples;
    std::int32_t sum = 0;
    std::int32_t squares = 0;
    for (int i = 0; i < 400; ++i) {
        const int sample = level(random);
        samples.push_back(sample);
        sum += sample;
        squares += sample * sample;
    }
    const double mean = std::accumulate(samples.begin(), samples.end(), 0.0) / 400.0;
    double variance = 0.0;
    for (const double sample : samples)
        variance += (sample - mean) * (sample - mean) / 399.0;
    EXPECT_NEAR(NoiseFreeBits(400, sum, squares),
        std::log(mean / std::sqrt(variance)) / std::log(2.0), 1e-10);
}

TEST(TonalFormulas, BitsWithoutAnAnswerAreNone)
{
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    struct Case {
        const char* name;
        std::int32_t count;
        std::int32_t sum;
        std::int32_t squares;
    };
    const Case rows[] = {
        {"no samples", 0, 100, 100},
        {"one sample", 1, 200, 40000},
        {"no variance", 2, 510, 130050},
        {"negative variance", 2, 510, 0},
        {"no light", 10, 0, 50},
        {"less than no light", 10, -5, 50},
        {"a negative count of samples", -8, 0, 0},
        {"the ends of 32 bits", kLeast, kMost, kLeast},
    };
    for (const Case& row : rows)
        EXPECT_EQ(NoiseFreeBits(row.count, row.sum, row.squares), 0.0) << row.name;
}

TEST(TonalFormulas, QuotientsHaveNoInfinities)
{
    EXPECT_EQ(Quotient(1.0, 4.0), 0.25);
    EXPECT_EQ(Quotient(1.0, 0.0), 0.0);
    EXPECT_EQ(Quotient(0.0, 0.0), 0.0);
    EXPECT_EQ(Quotient(1e300, 1e-300), 0.0);
    EXPECT_EQ(FiniteOrZero(std::numeric_limits<double>::quiet_NaN()), 0.0);
}

} // namespace
} // namespace vireo
