#pragma once

#include "platform/PositionalFile.h"
#include "viewers/controls/ProfileLine.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace vireo {

class SampleLines;

/// Appends the rows of a line's table from pixel `first` on, each ended by CR LF: the pixel's
/// number, its distance from the line's start in millimetres (empty where the pixel pitch is not
/// known), the letter of its camera (empty outside the cameras) and its value in each plane, empty
/// where a plane ends early. `Sample` is std::uint8_t or std::int32_t.
template <typename Sample>
void AppendPixelRows(std::string& text, std::int64_t first, const ProfileCameras& cameras,
    std::span<const std::vector<Sample>> planes);
/// The heading of such a table up to its planes.
inline constexpr const char* kPixelRowsHeading = "pixel,position_mm,camera,";

/// Writes line `line` (0-based) of a file as a table for a spreadsheet (RFC 4180): a heading, then
/// the rows. The only plane of a file is headed by the name of `onePlane`. The line is read and
/// written in pieces, so it may be of any length. The file is complete or absent.
FileStatus ExportSamplesAsCsv(const std::filesystem::path& target, const SampleLines& lines,
    const ProfileCameras& cameras, ShownColour onePlane, std::int64_t line);

} // namespace vireo
