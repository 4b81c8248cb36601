#pragma once

#include "samples/SampleFile.h"
#include "viewers/startest/StarTestSweep.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vireo {

/// How one sweep of a star-test sample runs.
struct SweepSetup {
    std::int32_t lineCount = 700;
    std::int32_t resolution = 300;  ///< Lines an inch.
    std::int32_t scanSpeed = 4;     ///< The faster, the stronger the vibration.
    std::int32_t motorStopLine = 0; ///< Where the carriage stops for a moment; 0: nowhere.
};

/// A star-test sample: the sweeps of one round, and how often the round is repeated.
struct StarTestSetup {
    std::string name; ///< Of the file.
    std::vector<SweepSetup> sweeps;
    std::int32_t repeat = 0;
    std::uint64_t seed = 1;
};

/// One sweep as it would be measured: target lines at 45 degrees that the carriage's vibration
/// shifts, a swaying wide line, and the speed table.
StarTestSweep MakeSweep(const SweepSetup& setup, std::uint64_t seed);

std::string StarTestFile(const StarTestSetup& setup);

/// The samples of the star test viewer: sweeps of three speeds with restarts and a motor stop, and
/// two sweeps measured in two rounds.
std::vector<SampleFile> StarTestSamples();

} // namespace vireo
