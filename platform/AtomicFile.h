#pragma once

#include "platform/PositionalFile.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>
#include <vector>

namespace vireo {

/// Writes a file so that it is complete or absent: the bytes go to a temporary file in the same
/// folder, which is then renamed over the target. Until Commit has returned Ok, whatever stood at
/// the target is untouched; an object destroyed without Commit leaves no trace, nor does a program
/// that is stopped meanwhile. One that is killed without being asked leaves the temporary file
/// behind, but not on Windows.
class AtomicFile {
public:
    /// When the bytes are made to reach the disk before the renaming. Where nothing stands at the
    /// target there is no old file that a power failure could take away, and waiting for the disk
    /// can cost more than all the rest; what is large and can be made again does without. One of
    /// many files that lie somewhere else, too, is never waited for: after each of many small files
    /// that takes a hundred times as long as writing them. Every program sees it complete or
    /// absent all the same.
    enum class Flush { Always, WhenReplacing, Never };

    /// What becomes of a link at the target: it stays, and the file behind it is replaced, or it is
    /// replaced itself, so that nothing is written anywhere but in the target's folder.
    enum class Links { Followed, Replaced };

    AtomicFile() = default;
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    ~AtomicFile();

    /// Creates the temporary file beside `target`.
    FileStatus Open(const std::filesystem::path& target, Links links = Links::Followed);
    /// Appends bytes, buffered. The first failure is kept, and Commit returns it.
    FileStatus Write(std::span<const std::uint8_t> bytes);
    FileStatus Write(std::string_view text);
    /// Appends `count` bytes that stand `offset` bytes behind the start of another file; where the
    /// system can, they do not pass through the program. A source that ends before gives Failed.
    FileStatus WriteFrom(const PositionalFile& source, std::uint64_t offset, std::uint64_t count);
    /// Replaces bytes written before, which begin `offset` bytes behind the start of the file.
    FileStatus Overwrite(std::uint64_t offset, std::span<const std::uint8_t> bytes);
    /// Flushes, closes and renames over the target. On failure the temporary file is removed.
    FileStatus Commit(Flush flush = Flush::Always);
    /// Removes the temporary file; the target stays as it was.
    void Discard();

    /// Whether a file's name, without folders, is one that temporary files get.
    static bool IsTemporary(std::string_view name);

private:
    /// A name beside the target that nobody can foresee.
    static std::filesystem::path TemporaryName(const std::filesystem::path& target);
    FileStatus FlushBuffer();
    /// Hands bytes to the system at once.
    FileStatus WriteThrough(std::span<const std::uint8_t> bytes);
    /// Whether Commit waits for the disk.
    bool Flushes(Flush flush) const;
    /// Lets the system copy as much as it will, and returns how many bytes that was.
    std::uint64_t CopyWithinSystem(
        const PositionalFile& source, std::uint64_t offset, std::uint64_t count);

    std::filesystem::path m_target;
    std::filesystem::path m_temporary;
    std::vector<std::uint8_t> m_buffer;
    FileStatus m_status = FileStatus::Failed;
    bool m_bReplaces = false; ///< A file stands at the target.
    Links m_links = Links::Followed;
#ifdef _WIN32
    void* m_handle = nullptr;
#else
    int m_descriptor = -1;
#endif
};

/// Removes a file; one that other programs keep open stays (Windows).
FileStatus RemoveFile(const std::filesystem::path& path);

/// Replaces `target` by a file that holds `content`, completely or not at all.
FileStatus WriteFileAtomically(const std::filesystem::path& target, std::string_view content);

} // namespace vireo
