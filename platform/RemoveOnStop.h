#pragma once

#include <filesystem>

namespace vireo {

/// Files that are not to stay when the program is stopped while it works (Ctrl-C, a terminal that
/// is closed, a session that ends): the program removes them first, and then stops as it would
/// have. Where it is killed without being asked they do stay.

/// Has a file removed, which need not be there yet. The first call makes the program answer to what
/// stops it, unless something else does so already.
void RemoveOnStop(const std::filesystem::path& file);

/// Ends that: the file has got its name, or is gone.
void KeepOnStop(const std::filesystem::path& file);

} // namespace vireo
