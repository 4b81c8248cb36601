#pragma once

#include "platform/PositionalFile.h"
#include "viewers/controls/ProfileLine.h"

#include <filesystem>

namespace vireo {

/// Writes a line's samples as a table for a spreadsheet (RFC 4180): a heading, then for every pixel
/// its number from 0, the letter of its camera (empty outside the cameras) and the value of each
/// plane that the line has. The one plane of a gray file is headed "gray". The file is complete or
/// absent.
FileStatus ExportLineAsCsv(const std::filesystem::path& target, const ProfileLine& line,
    const ProfileCameras& cameras, bool isGray);

} // namespace vireo
