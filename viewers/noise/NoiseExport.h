#pragma once

#include "platform/PositionalFile.h"

#include <filesystem>

namespace vireo {

class NoiseData;

/// Writes the line as a table for a spreadsheet (RFC 4180): a heading, then for every pixel its
/// number from 0, its distance from the line's start in millimetres and the value of each plane.
/// The one plane of a gray file is headed "gray". The file is complete or absent.
FileStatus ExportNoiseAsCsv(const std::filesystem::path& target, const NoiseData& data);

} // namespace vireo
