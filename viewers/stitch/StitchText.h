#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vireo {

class StitchData;

/// The texts of the stitch viewer that are worked out from its data. All are Windows-1252.

/// "x 1204  y 88    10.19 mm  0.75 mm    value 187": a pixel counted from the picture's upper left
/// corner, and its place where the resolution is known.
std::string PixelText(const StitchData& data, std::int64_t x, std::int64_t y, std::uint8_t value);

/// "6000 x 800 pixels, 300 dpi, gray": what the picture is.
std::string PictureText(const StitchData& data);

/// The lines above a printed picture: the test, the file, the scanner and when, and the picture.
std::vector<std::string> StitchHeaderLines(const StitchData& data);

/// Why a picture that is announced far larger than its data is not worked through.
inline constexpr const char* kNotWorkable = "The picture is empty, or far larger than its data";

} // namespace vireo
