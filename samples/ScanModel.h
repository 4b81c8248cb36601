#pragma once

#include "samples/SampleRandom.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace vireo {

/// What decides the signal of a simulated scanner that looks at a white target.
struct ScanSetup {
    std::vector<int> cameraPixels; ///< Pixels of camera A, B, ... in line order.
    int dpi = 600;                 ///< Scales edges, printed lines and overlaps.
    bool corrected = true;         ///< Shading and fixed pattern taken out by the scanner.
    int lineCount = 1;             ///< With more than one, a dark bar passes over the line.
    std::uint64_t seed = 1;
};

/// Computes the 8-bit signal of a line of cameras, in whole numbers only.
///
/// The target is white with dark surroundings left and right and a pattern of fine printed lines at
/// every camera boundary. Each camera has its own gain, shading, sharpness and a small offset of
/// its picture; each pixel its own sensitivity, some of them dimmed by dust. The noise grows with
/// the square root of the signal.
class ScanModel {
public:
    explicit ScanModel(const ScanSetup& setup);

    int LineWidth() const { return static_cast<int>(m_pixels.size()); }

    /// Fills one plane (0 red, 1 green, 2 blue) of line `line` (0-based): sample i goes to
    /// out[i * step]. Lines draw on one random sequence: the order of the calls matters.
    void FillLine(int line, int plane, std::uint8_t* out, int step);

private:
    struct Pixel {
        std::int32_t target16 = 0; ///< Where it looks at on the target, in 1/16 pixel.
        std::int32_t gain = 0;     ///< 4096 is 1.
        std::int16_t blur16 = 0;   ///< Half width of an edge in its picture, in 1/16 pixel.
    };

    void AddCamera(int camera, int pixels);
    void AddDust();
    std::int32_t GainAt(int camera, int index, int pixels);
    int Reflectance(std::int32_t target16, int blur16, int line) const;
    int PrintedLines(std::int32_t target16, int blur16) const;

    ScanSetup m_setup;
    SampleRandom m_random;
    std::vector<Pixel> m_pixels;
    std::vector<std::int32_t> m_boundaries16; ///< Camera boundaries, in 1/16 pixel.
    std::vector<std::int32_t> m_deviation16;  ///< Noise by signal, both in 1/16 level.
};

} // namespace vireo
