#pragma once

#include "samples/SampleFile.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vireo {

/// How a noise sample's line looks and how its file is laid out.
struct NoiseSetup {
    std::string name; ///< Of the file.
    std::string scannerName = "Heron 36";
    std::int32_t lineLength = 10'200;
    int planeCount = 3; ///< 1 gray, 3 colour, 4 colour and gray.
    bool binary = false;
    int dustGrains = 4; ///< Each dims some pixels in every plane.
    int hotPixels = 1;
    std::uint64_t seed = 1;
};

/// A whole noise file: a nearly flat line with a little shading and noise, dust and hot pixels.
std::string NoiseFile(const NoiseSetup& setup);

/// The samples of the noise test viewer: colour, gray, the old binary form, and four planes.
std::vector<SampleFile> NoiseSamples();

} // namespace vireo
