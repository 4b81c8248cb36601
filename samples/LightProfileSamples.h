#pragma once

#include "samples/SampleFile.h"

#include <cstdint>
#include <vector>

namespace vireo {

/// What decides the profile of a simulated scanner that looks at an evenly lit white target.
struct LightSetup {
    std::vector<int> cameraPixels; ///< Of camera A, B, ... in line order.
    bool corrected = true;         ///< Shading and gains taken out by the scanner.
    std::uint64_t seed = 1;
};

/// The light of one plane (0 red, 1 green, 2 blue) at every pixel, in 1/256 level of 8-bit samples:
/// each camera has its gain and falls off towards its ends; some pixels are dimmed by dust.
std::vector<std::int32_t> LightOf(const LightSetup& setup, int plane);

/// The samples of the light profile viewer: gray bytes, colour of signed 32-bit samples, an old
/// binary file.
std::vector<SampleFile> LightProfileSamples();

} // namespace vireo
