#pragma once

#include "figures/Json.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace vireo {

/// What a measurement of pixels comes to: bytes of pixels over the median time, in MB of 1,000,000
/// bytes a second.
Json PixelFigures(
    const std::vector<double>& seconds, std::size_t pixels, std::int64_t fileBytes, int threads);
/// The same of a measurement that counts the bytes of the file.
Json FileFigures(const std::vector<double>& seconds, std::int64_t fileBytes, int threads);

/// A file's length; 0 when it cannot be opened.
std::int64_t FileBytes(const std::filesystem::path& file);

} // namespace vireo
