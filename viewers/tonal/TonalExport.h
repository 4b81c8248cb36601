#pragma once

#include "platform/PositionalFile.h"

#include <filesystem>

namespace vireo {

class TonalResolutionData;

/// Writes the series of all three plots as a table for a spreadsheet (RFC 4180): a heading, then a
/// row a patch, lightest first: its name, L*, the scan values of the channels, their fitted lines
/// at this L*, the differences of both, and the density. The file is complete or absent.
FileStatus ExportTonalAsCsv(const std::filesystem::path& target, const TonalResolutionData& data);

} // namespace vireo
