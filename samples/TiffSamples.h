#pragma once

#include "samples/SampleFile.h"

#include <cstdint>
#include <filesystem>
#include <vector>

namespace vireo {

/// The samples of the picture viewer: scans of a test chart in gray with its cameras, bilevel,
/// colour, palette colours and 16-bit gray, each in another compression.
std::vector<SampleFile> TiffSamples();

/// Writes a square gray picture of about `bytes` pixels for measuring: the chart with a little
/// noise, row by row. False when it cannot be written.
bool WriteBigTiff(
    std::uint16_t compression, std::uint64_t bytes, const std::filesystem::path& path);

} // namespace vireo
