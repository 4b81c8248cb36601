#pragma once

#include "platform/PositionalFile.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace vireo {

/// INI-style settings files with the semantics of the platform's private-profile functions, on
/// every system: section and key names compare without regard to case; blanks and tabs around
/// sections, keys and values do not count; one pair of single or double quotes around a value is
/// removed; a line that starts with ';' is a comment; the first section and the first key of a name
/// win. Text is 8-bit as it stands in the file. Files above 1 MiB are not read.
class PrivateProfile {
public:
    explicit PrivateProfile(std::filesystem::path file) : m_file(std::move(file)) { }

    /// The value of a key, or `defaultValue` (without its trailing blanks) when the file, section
    /// or key is missing. At most `bufferSize` - 1 characters are returned, as into a buffer of
    /// that size.
    std::string ReadString(std::string_view section, std::string_view key,
        std::string_view defaultValue, std::size_t bufferSize = 260) const;

    /// The leading decimal integer of the value (sign allowed); 0 when the value does not start
    /// with one, `defaultValue` when the key is missing or has no value at all.
    int ReadInt(std::string_view section, std::string_view key, int defaultValue) const;

    /// Sets a key, adding section and key when they are missing; everything else in the file, its
    /// comments and its kind of line ends included, stays as it is. The file is created when it is
    /// missing and replaced completely or not at all. Failed for a name that no reader would find
    /// again, such as a key with a '='.
    FileStatus WriteString(
        std::string_view section, std::string_view key, std::string_view value) const;
    /// Removes a key, or with no key the whole section; Ok when there is none.
    FileStatus Remove(std::string_view section, std::optional<std::string_view> key) const;

private:
    std::filesystem::path m_file;
};

} // namespace vireo
