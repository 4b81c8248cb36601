#pragma once

#include "samples/SampleFile.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

class SampleRandom;

/// A simulated picture of the stitching area: a white target with fine printed lines, seen by two
/// cameras that meet in the middle. The right one is a little darker and sees everything some
/// pixels lower and farther to the right, so that the lines break at the seam.
class StitchModel {
public:
    enum class Noise { Without, With };

    StitchModel(std::int64_t width, Noise noise, std::uint64_t seed);

    std::int64_t Width() const { return m_width; }
    /// Fills row `row` (0-based), one gray byte a pixel. Rows may be asked for in any order.
    void FillRow(std::int64_t row, std::span<std::uint8_t> pixels) const;

private:
    static constexpr int kVariants = 8;

    std::vector<std::uint8_t> MakeRow(bool isLine, SampleRandom* random) const;

    std::int64_t m_width;
    std::vector<std::vector<std::uint8_t>> m_plain; ///< Rows between the horizontal lines.
    std::vector<std::uint8_t> m_line;               ///< A row of a horizontal line.
};

/// A row as run-length codes, its end included: black is what is darker than half.
std::string RunLengthCodes(std::span<const std::uint8_t> pixels);

/// Writes a huge picture for measuring: "stitch", about `bytes` gray pixels, as wide as high;
/// "stitch-run-length", a picture 40,000 pixels wide with about `bytes` bytes of codes. Returns
/// false for another kind and when writing fails.
bool WriteBigStitch(std::string_view kind, std::uint64_t bytes, const std::filesystem::path& path);

/// The samples of the stitch viewer: the text form, and both old forms.
std::vector<SampleFile> StitchSamples();

} // namespace vireo
