#pragma once

#include "platform/PositionalFile.h"

#include <compare>
#include <cstdint>
#include <filesystem>

namespace vireo {

/// What tells a file or folder from every other, under whatever names and links it is reached.
struct FileIdentity {
    std::uint64_t volume = 0;
    std::uint64_t number = 0;

    friend auto operator<=>(const FileIdentity&, const FileIdentity&) = default;
};

/// Finds the identity of what a path leads to, links followed.
FileStatus ReadIdentity(const std::filesystem::path& path, FileIdentity& identity);

/// Whether two paths lead to one file that is there, under whatever names and links.
bool IsSameFile(const std::filesystem::path& left, const std::filesystem::path& right);

} // namespace vireo
