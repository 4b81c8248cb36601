#pragma once

#include <filesystem>

namespace vireo {

/// The path as the system's functions have to be given it: short ones as they are; long ones in
/// full behind "\\?\", which alone lets them pass 260 characters whatever the user's settings say.
std::filesystem::path SystemPath(const std::filesystem::path& path);

} // namespace vireo
