#pragma once

#include "platform/PositionalFile.h"
#include "testfile/HeaderView.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vireo {

class AdjustmentData;

/// Writes header rows as a table for a spreadsheet (RFC 4180, UTF-8): key, value and meaning. The
/// file is complete or absent.
FileStatus ExportHeaderAsCsv(
    const std::filesystem::path& target, const std::vector<HeaderRow>& rows);

/// Writes line `line` (0-based) of the data as a table; of data that are no lines, the header's
/// rows.
FileStatus ExportAdjustmentAsCsv(
    const std::filesystem::path& target, const AdjustmentData& data, std::int64_t line);

/// The lines printed above profile or picture: the test, the file, the header's rows and what the
/// data are. Rows that would leave no room for the plot are counted instead.
std::vector<std::string> AdjustmentHeaderLines(const AdjustmentData& data);

} // namespace vireo
