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
    /// When the bytes are made to reach the disk before the renaming. Where nothing stands at the
    /// target there is no old file that a power failure could take away, and waiting for the disk
    /// can cost more than all the rest; what is large and can be made again does without.
    enum class Flush { Always, WhenReplacing };

    AtomicFile() = default;
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    ~AtomicFile();

    /// Creates the temporary file beside `target`.
    FileStatus Open(const std::filesystem::path& target);
    /// Appends bytes, buffered. The first failure is kept, and Commit returns it.
    FileStatus Write(std::span<const std::uint8_t> bytes);
    FileStatus Write(std::string_view text);
    /// Replaces bytes written before, which begin `offset` bytes behind the start of the file.
    FileStatus Overwrite(std::uint64_t offset, std::span<const std::uint8_t> bytes);
    /// Flushes, closes and renames over the target. On failure the temporary file is removed.
    FileStatus Commit(Flush flush = Flush::Always);
    /// Removes the temporary file; the target stays as it was.
    void Discard();

private:
    /// A name beside the target that nobody can foresee.
    static std::filesystem::path TemporaryName(const std::filesystem::path& target);
    FileStatus FlushBuffer();
    /// Hands bytes to the system at once.
    FileStatus WriteThrough(std::span<const std::uint8_t> bytes);

    std::filesystem::path m_target;
    std::filesystem::path m_temporary;
    std::vector<std::uint8_t> m_buffer;
    FileStatus m_status = FileStatus::Failed;
    bool m_bReplaces = false; ///< A file stands at the target.
#ifdef _WIN32
    void* m_handle = nullptr;
#else
    int m_descriptor = -1;
#endif
};

/// Replaces `target` by a file that holds `content`, completely or not at all.
FileStatus WriteFileAtomically(const std::filesystem::path& target, std::string_view content);

} // namespace vireo
