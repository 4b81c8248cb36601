#pragma once

#include "platform/PositionalFile.h"

#include <cstdint>
#include <filesystem>

namespace vireo {

class OscilloscopeData;

/// Writes line `line` (0-based) as a table for a spreadsheet (RFC 4180): a heading, then for every
/// pixel its number from 0, its distance from the line's start in millimetres (empty where the
/// pixel pitch is not known), the letter of its camera (empty outside the cameras) and the value of
/// each plane. The one plane of a gray file is headed "gray". The line is read and written in
/// pieces, so it may be of any length; the file is complete or absent.
FileStatus ExportLineAsCsv(
    const std::filesystem::path& target, const OscilloscopeData& data, std::int64_t line);

} // namespace vireo
