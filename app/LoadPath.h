#pragma once

#include <filesystem>
#include <string_view>

namespace vireo {

/// The path meant by a file name from the command line (UTF-8): the name as it stands when there is
/// such a file; else without trailing blanks, and on systems with '/' only with every '\' turned
/// into one, whichever exists first. A name that leads nowhere comes back without trailing blanks.
std::filesystem::path LoadPath(std::string_view name);

} // namespace vireo
