#pragma once

#include "samples/SampleFile.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vireo {

/// What kind of scanner a tonal resolution sample comes from and by which program it was written.
struct TonalSetup {
    std::string name; ///< Of the file.
    std::string scannerName = "Heron 36";
    std::int32_t version = 3;
    /// Samples of pure green that the first version's test program counted with every patch.
    int greenSamples = 0;
    /// Levels below and above which the scanner tells nothing apart, in 1/100.
    int darkest = 0;
    int lightest = 25'500;
    /// By how much red and blue bend away from green in the middle of the scale, in 1/100 level.
    int redBend = 60;
    int blueBend = -90;
    std::uint64_t seed = 1;
};

/// A whole tonal resolution file: the 24 gray patches of a target, their samples drawn with the
/// noise of a scanner.
std::string TonalFile(const TonalSetup& setup);

/// The samples of the tonal resolution viewer: a good scanner, one that sees no shadows, and the
/// fault of the first version's files.
std::vector<SampleFile> TonalSamples();

} // namespace vireo
