#pragma once

#include <filesystem>
#include <string_view>

namespace vireo {

/// Tells the user, in one message, which file cannot be opened and why: a sentence without
/// its full stop.
void ShowCannotOpen(const std::filesystem::path& file, std::string_view reason);

} // namespace vireo
