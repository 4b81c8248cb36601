#pragma once

#include "platform/PositionalFile.h"

#include <cstdint>
#include <filesystem>

namespace vireo {

class StitchData;

/// Writes the picture's columns as a table for a spreadsheet (RFC 4180): for every column its
/// number from 0, its distance from the left edge in millimetres (empty where the resolution is not
/// known), its value in row `row`, and lowest, highest and mean value over all rows. A seam between
/// two cameras or a bad pixel stands out in them. The file is complete or absent.
///
/// `data` must be workable and have the row.
FileStatus ExportStitchAsCsv(
    const std::filesystem::path& target, const StitchData& data, std::int64_t row);

} // namespace vireo
