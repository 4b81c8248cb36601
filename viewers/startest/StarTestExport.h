#pragma once

#include "platform/PositionalFile.h"

#include <filesystem>

namespace vireo {

struct StarTestSweep;

/// Writes a sweep as a table for a spreadsheet (RFC 4180): a heading, then for every scan line its
/// number from 0, its distance from the first in centimetres and the values of the sweep's curves;
/// a value that is no finite number is left empty. The file is complete or absent.
FileStatus ExportSweepAsCsv(const std::filesystem::path& target, const StarTestSweep& sweep);

} // namespace vireo
