#pragma once

#include "platform/WorkProgress.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace vireo {

/// Which row of which picture becomes a table.
struct PictureRowExport {
    std::filesystem::path file;
    std::uint32_t page = 1; ///< Counted from 1.
    std::int64_t row = 0;   ///< 0-based.
    std::filesystem::path target;
};

/// Writes a row as a table for a spreadsheet (RFC 4180): for every pixel its number from 0, its
/// distance from the row's start in millimetres (empty where the resolution is not known), the
/// letter of its camera (empty where that is not known), its samples as the file has them and,
/// except for palette indexes, the mean of each over all rows of the picture. The rows pass by one
/// after the other, so that a picture of any height needs the memory of a few rows.
///
/// The file is complete or absent. An empty text when it is written, and when it was cancelled;
/// else the reason why not, in one sentence in UTF-8.
std::string ExportPictureRow(const PictureRowExport& what, WorkProgress& progress);

} // namespace vireo
