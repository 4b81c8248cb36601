#include "viewers/tonal/TonalFormulas.h"

#include <cassert>
#include <cmath>

namespace vireo {

namespace {

// CIE 15, the line that stands in for the cube root near black, with the rounded constants with
// which the figures of this test have always been worked out.
constexpr double kDarkestLinear = 0.008856;
constexpr double kDarkestLightness = 7.9996248;
constexpr double kDarkSlope = 903.3;

// C libraries differ in the last digit of these. Worked out wider and then rounded they do not, and
// a file has the same figures on every system.

double Power(double base, double exponent)
{
    return static_cast<double>(std::pow(static_cast<long double>(base), exponent));
}

double Log10(double value)
{
    return static_cast<double>(std::log10(static_cast<long double>(value)));
}

double Log2(double value)
{
    return static_cast<double>(std::log2(static_cast<long double>(value)));
}

} // namespace

double FiniteOrZero(double value)
{
    return std::isfinite(value) ? value : 0.0;
}

double Quotient(double numerator, double denominator)
{
    return denominator == 0.0 ? 0.0 : FiniteOrZero(numerator / denominator);
}

double LightnessOfLinear(double linear)
{
    return linear > kDarkestLinear ? 116.0 * Power(linear, 1.0 / 3.0) - 16.0 : kDarkSlope * linear;
}

double LinearOfLightness(double lightness)
{
    return lightness > kDarkestLightness ? Power((lightness + 16.0) / 116.0, 3.0)
                                         : lightness / kDarkSlope;
}

double DensityOfLightness(double lightness)
{
    return -Log10(LinearOfLightness(lightness));
}

double ScanValue(double mean)
{
    constexpr double kFullScale = 255.0;
    constexpr double kGamma = 2.2;
    constexpr double kPerLightness = 2.55;
    return FiniteOrZero(kPerLightness * LightnessOfLinear(Power(mean / kFullScale, kGamma)));
}

LineFit FitLine(std::span<const double> x, std::span<const double> y)
{
    assert(x.size() == y.size());
    const auto n = static_cast<double>(x.size());
    double sumX = 0.0;
    double sumY = 0.0;
    double sumXX = 0.0;
    double sumYY = 0.0;
    double sumXY = 0.0;
    for (std::size_t i = 0; i < x.size(); ++i) {
        sumX += x[i];
        sumY += y[i];
        sumXX += x[i] * x[i];
        sumYY += y[i] * y[i];
        sumXY += x[i] * y[i];
    }
    // n squared times the variances and the covariance.
    const double spreadX = n * sumXX - sumX * sumX;
    const double spreadY = n * sumYY - sumY * sumY;
    const double spreadXY = n * sumXY - sumX * sumY;
    LineFit fit;
    fit.slope = Quotient(spreadXY, spreadX);
    fit.offset = Quotient(sumY - sumX * fit.slope, n);
    fit.correlation = Quotient(spreadXY * spreadXY, spreadY * spreadX);
    return fit;
}

double NoiseFreeBits(std::int32_t count, std::int32_t sum, std::int32_t sumOfSquares)
{
    const double n = count;
    const double total = sum;
    const double mean = Quotient(total, n);
    const double variance = Quotient(sumOfSquares - Quotient(total * total, n), n - 1.0);
    return FiniteOrZero(Log2(Quotient(mean, std::sqrt(variance))));
}

} // namespace vireo
