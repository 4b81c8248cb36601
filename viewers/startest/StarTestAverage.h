#pragma once

#include "viewers/startest/StarTestSweep.h"

#include <cstdint>
#include <span>
#include <vector>

namespace vireo {

/// Mean of some values and how far they scatter about it.
struct MeanAndDeviation {
    double mean = 0.0;
    double deviation = 0.0; ///< Of the sample; 0 for fewer than two values.
};
MeanAndDeviation MeanAndDeviationOf(std::span<const double> values);

/// Appends the average records of a test whose sweeps were measured in `repeat` rounds, one round
/// behind the other: one record for each sweep of a round.
///
/// An average record has the settings, the ranges, the speed table and the X restarts of the first
/// round's sweep. Its X vibration average is the mean over the rounds at each line, its speed curve
/// their standard deviation there; lines that a round has not got are left out. The values of its
/// points are summed over the rounds, their deviations averaged, with the standard deviations
/// behind ten times as many entries.
void AppendAverages(std::vector<StarTestSweep>& sweeps, std::int32_t repeat);

} // namespace vireo
