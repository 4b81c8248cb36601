#pragma once

#include <cstdint>
#include <span>

namespace vireo {

// The arithmetic of the tonal resolution test, a function a formula. Lightness is CIE 1976 L*, 0 to
// 100; a linear value is a reflectance Y with white at 1. All in double precision.
//
// What has no answer is not told by infinities: a quotient by 0 is 0, and so is any figure that
// would not be a finite number. A file with a patch that was never scanned still shows the others.

/// The value, or 0 where it is infinite or not a number.
double FiniteOrZero(double value);

/// numerator / denominator, or 0 where that is not a finite number.
double Quotient(double numerator, double denominator);

/// L* of a linear value: 116 Y^(1/3) - 16, and 903.3 Y for the darkest.
double LightnessOfLinear(double linear);

/// The inverse of LightnessOfLinear.
double LinearOfLightness(double lightness);

/// The optical density -log10(Y) of a lightness. Infinite for black, not a number below.
double DensityOfLightness(double lightness);

/// How light the scanner saw a patch, as it is plotted over L*: the mean of its samples (0 to 255,
/// with a gamma of 2.2) as lightness, spread over 0 to 255 as well.
double ScanValue(double mean);

/// The straight line through points by least squares.
struct LineFit {
    double slope = 0.0;
    double offset = 0.0;
    /// The square of the correlation coefficient: 1 where all points lie on the line.
    double correlation = 0.0;

    double At(double x) const { return slope * x + offset; }
};

/// Fits a line to the points (x[i], y[i]), of which both spans have as many. Points that have no
/// slope, because all have the same x, give slope 0 through their mean.
LineFit FitLine(std::span<const double> x, std::span<const double> y);

/// How many bits of a patch's signal are free of noise: log2 of its mean over its standard
/// deviation, from the number of its samples, their sum and the sum of their squares. The variance
/// is that of a sample, divided by count - 1. 0 where there is no mean or no deviation.
double NoiseFreeBits(std::int32_t count, std::int32_t sum, std::int32_t sumOfSquares);

} // namespace vireo
