#pragma once

#include "platform/PositionalFile.h"

#include <cstddef>
#include <filesystem>
#include <vector>

namespace vireo {

/// The files that the user opened last, newest first, kept in a small text file: one absolute path
/// a line, UTF-8. Every change reads the list again first and replaces the file as a whole, so that
/// several running viewers add to one list. Whether the files still exist is not asked here.
class RecentFiles {
public:
    static constexpr std::size_t kMaxFiles = 10;

    /// An empty path keeps the list in memory only.
    explicit RecentFiles(std::filesystem::path listFile);

    const std::vector<std::filesystem::path>& Files() const { return m_files; }

    /// Reads the list; a missing file is an empty list. Lines that are not absolute paths are
    /// skipped, and so is all that lies behind the tenth.
    FileStatus Load();
    /// Puts a file first, made absolute, wherever it stood before. A path that does not fit on one
    /// line is not kept.
    FileStatus Add(const std::filesystem::path& file);
    FileStatus Remove(const std::filesystem::path& file);

private:
    FileStatus Save() const;

    std::filesystem::path m_listFile;
    std::vector<std::filesystem::path> m_files;
};

} // namespace vireo
