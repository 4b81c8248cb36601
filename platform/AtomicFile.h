#pragma once

#include "platform/PositionalFile.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>
#include <vector>

namespace vireo {

/// Writes a file so that it is complete or absent: the bytes go to a temporary file in the same
/// folder, are flushed to the disk and then renamed over the target. Until Commit has returned Ok,
/// whatever stood at the target is untouched; an object destroyed without Commit leaves no trace.
class AtomicFile {
public:
    AtomicFile() = default;
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    ~AtomicFile();

    /// Creates the temporary file beside `target`.
    FileStatus Open(const std::filesystem::path& target);
    /// Appends bytes, buffered. The first failure is kept, and Commit returns it.
    FileStatus Write(std::span<const std::uint8_t> bytes);
    FileStatus Write(std::string_view text);
    /// Flushes, closes and renames over the target. On failure the temporary file is removed.
    FileStatus Commit();
    /// Removes the temporary file; the target stays as it was.
    void Discard();

private:
    /// A name beside the target that nobody can foresee.
    static std::filesystem::path TemporaryName(const std::filesystem::path& target);
    FileStatus FlushBuffer();

    std::filesystem::path m_target;
    std::filesystem::path m_temporary;
    std::vector<std::uint8_t> m_buffer;
    FileStatus m_status = FileStatus::Failed;
#ifdef _WIN32
    void* m_handle = nullptr;
#else
    int m_descriptor = -1;
#endif
};

/// Replaces `target` by a file that holds `content`, completely or not at all.
FileStatus WriteFileAtomically(const std::filesystem::path& target, std::string_view content);

} // namespace vireo
