#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vireo {

/// What came of opening, reading or writing a file.
enum class [[nodiscard]] FileStatus{
    Ok, NotFound, AccessDenied, IsFolder,
    NotAFile,         ///< A device or a pipe, which has no positions to read at.
    SharingViolation, ///< Another program holds the file in a way that excludes us (Windows).
    DiskFull,
    TooLarge, ///< Larger than the caller is willing to hold.
    Failed,   ///< Anything else the system reports.
};

/// A short English text for a status, such as "No such file"; for messages and standard error.
std::string_view Describe(FileStatus status);

/// A file that is read by position: there is no current position, so one object serves any number
/// of readers and threads. Reads never fail hard: what another program cut off reads as the end.
class PositionalFile {
public:
    PositionalFile() = default;
    PositionalFile(PositionalFile&& other) noexcept;
    PositionalFile& operator=(PositionalFile&& other) noexcept;
    PositionalFile(const PositionalFile&) = delete;
    PositionalFile& operator=(const PositionalFile&) = delete;
    ~PositionalFile();

    /// What other programs may do with the file while it is open (heeded on Windows only).
    enum class Sharing { ReadersAndWriters, ReadersOnly };

    /// Opens an existing regular file for reading; a file open before is closed first. Pipes and
    /// devices give NotAFile. On Windows that goes for the device names ("CON", "NUL") too, and a
    /// path may be longer than the 260 characters of old.
    FileStatus Open(
        const std::filesystem::path& path, Sharing sharing = Sharing::ReadersAndWriters);
    void Close();
    bool IsOpen() const;

    /// Length in bytes when the file was opened; 0 when none is open.
    std::uint64_t Size() const { return m_size; }

    /// Reads up to `buffer.size()` bytes from `offset` bytes behind the start, and returns how many
    /// were read: fewer only at the end of the file or on a read error.
    std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> buffer) const;

private:
    friend class AtomicFile; // Copies from one file to another within the system.

#ifdef _WIN32
    void* m_handle = nullptr;
#else
    int m_descriptor = -1;
#endif
    std::uint64_t m_size = 0;
};

/// Reads a whole file of at most `maxBytes` bytes into `content`.
FileStatus ReadWholeFile(
    const std::filesystem::path& path, std::size_t maxBytes, std::string& content);

} // namespace vireo
