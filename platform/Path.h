#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace vireo {

/// A path from UTF-8 text, and back. On systems whose paths are bytes the bytes are taken as they
/// are; on Windows bytes that are not UTF-8 become U+FFFD.
std::filesystem::path PathFromUtf8(std::string_view utf8);
std::string Utf8FromPath(const std::filesystem::path& path);

/// A path as messages show it: UTF-8 with the system's separators.
std::string ShownPath(std::filesystem::path path);

/// A path in full, from its drive, share or root on, without "." and ".."; as it is where the
/// system cannot tell. The standard library's own knows no shares of Windows, as \\server\share.
std::filesystem::path FullPath(const std::filesystem::path& path);

/// Whether a path begins with its drive and root, its share, or elsewhere its root.
bool IsFullPath(const std::filesystem::path& path);

/// The folder that holds a file; "." for a bare name.
std::filesystem::path FolderOf(const std::filesystem::path& file);

/// The parts of a path text as the Windows path splitter gives them, on every system. Joined in
/// order they give the text back.
struct PathParts {
    std::string drive;     ///< "C:", or empty.
    std::string folder;    ///< With its trailing separator, or empty.
    std::string name;      ///< Without the extension.
    std::string extension; ///< With its '.', or empty.
};

/// Splits at both '\' and '/'.
PathParts SplitPath(std::string_view path);

} // namespace vireo
