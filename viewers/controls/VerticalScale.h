#pragma once

#include "viewers/controls/LinePyramid.h"

#include <vector>

namespace vireo {

/// The values at the top and the bottom of a plot, and the step of its grid lines. Plain
/// arithmetic.
struct VerticalScale {
    double top = 5.0;
    double bottom = -5.0;
    double gridStep = 2.5;

    /// Whether a plot can be drawn with it: finite, the top above the bottom, a step above 0.
    bool IsValid() const;

    /// The scale with round limits and a round step that shows a range of values. An empty range
    /// gives the default scale.
    static VerticalScale Fitting(const ValueRange<double>& values);
    /// A scale with these limits and a round step.
    static VerticalScale Between(double bottom, double top);

    /// `times` as close (wider when below 1), with `value` staying where it is.
    VerticalScale ZoomedAt(double value, double times) const;
    VerticalScale MovedBy(double values) const;

    /// The values of the grid lines, from the bottom up; none when they would be too many to see.
    std::vector<double> GridLines() const;

    bool operator==(const VerticalScale&) const = default;
};

} // namespace vireo
