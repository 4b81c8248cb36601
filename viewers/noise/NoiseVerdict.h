#pragma once

#include <string>

namespace vireo {

class NoiseData;

enum class NoiseVerdict {
    None, ///< There is nothing to judge: no line, or one that is too short for a band.
    Pass, ///< No plane leaves the band of the limit around its average.
    Fail,
};

/// Judges all planes of a line by a limit in percent.
NoiseVerdict JudgeNoise(const NoiseData& data, int limitPercent);

/// The verdict in words: "Pass", or "Fail" and how many stretches of each plane are outside, as
/// "Fail\nRed 2, Blue 1"; empty for none.
std::string NoiseVerdictText(const NoiseData& data, int limitPercent);

} // namespace vireo
