#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace vireo {

/// A path as messages show it: with the system's separators, in Windows-1252.
std::string MessageText(const std::filesystem::path& file);

/// Tells the user, in one message, which file cannot be opened and why: a sentence without
/// its full stop.
void ShowCannotOpen(const std::filesystem::path& file, std::string_view reason);

} // namespace vireo
