#pragma once

#include <string>
#include <vector>

namespace vireo {

/// One labelled place on an axis.
struct AxisTick {
    double value = 0.0;
    std::string text; ///< With as many decimals as the steps of its axis need.
};

/// The ticks of an axis from `low` to `high`, both included: multiples of 1, 2 or 5 times a power
/// of ten, ascending, never more than `most`, and at least one where `most` is. A reversed range
/// gives the same ticks; a range of one value gives that value; a limit that is not a finite
/// number, or `most` below 1, gives none.
std::vector<AxisTick> AxisTicks(double low, double high, int most);

/// The unlabelled ticks between those of AxisTicks for the same arguments: fifths of a step of 1 or
/// 5, quarters of a step of 2.
std::vector<double> MinorAxisTicks(double low, double high, int most);

} // namespace vireo
