#include "platform/AtomicFile.h"

#include "platform/RemoveOnStop.h"
#include "platform/posix/SystemError.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <limits>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace vireo {

namespace {

/// The file that a link at `target` leads to, or `target` itself: the link is to stay a link.
std::filesystem::path BehindLinks(const std::filesystem::path& target)
{
    constexpr int kMostLinks = 40;
    std::filesystem::path path = target;
    std::error_code error;
    for (int links = 0; links < kMostLinks; ++links) {
        const std::filesystem::path next = std::filesystem::read_symlink(path, error);
        if (error)
            break;
        path = path.parent_path() / next;
    }
    return path;
}

/// Whether a path leads to a device or a pipe. Links of the system's own ("/dev/stdout") lead there
/// without telling a path.
bool LeadsToNoFile(const std::filesystem::path& target)
{
    struct stat information = {};
    return stat(target.c_str(), &information) == 0 && !S_ISREG(information.st_mode)
        && !S_ISDIR(information.st_mode);
}

/// What may be put at the target: nothing stands there, or a regular file that we may write to, or
/// a link that is to be replaced. Links to be followed have been, to their end.
FileStatus CheckTarget(const std::filesystem::path& target, AtomicFile::Links links,
    std::optional<mode_t>& permissions)
{
    struct stat information = {};
    if (lstat(target.c_str(), &information) != 0)
        return errno == ENOENT ? FileStatus::Ok : StatusFromError(errno);
    if (S_ISLNK(information.st_mode))
        return links == AtomicFile::Links::Replaced ? FileStatus::Ok : FileStatus::NotFound;
    if (S_ISDIR(information.st_mode))
        return FileStatus::IsFolder;
    if (!S_ISREG(information.st_mode))
        return FileStatus::NotAFile;
    permissions = information.st_mode & 07777;
    // Renaming asks the folder only; a file that its owner has protected stays protected.
    return access(target.c_str(), W_OK) == 0 ? FileStatus::Ok : StatusFromError(errno);
}

/// Where the user may write no more than so much into a file, a write is to fail as on a full disk;
/// else the system ends the program and leaves half a file.
void FailWritesAtSizeLimit()
{
    static const auto before = std::signal(SIGXFSZ, SIG_IGN);
    static_cast<void>(before);
}

/// Makes the renaming itself lasting. Some file systems cannot, which takes nothing from the file.
void FlushFolder(const std::filesystem::path& file)
{
    const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

} // namespace

AtomicFile::~AtomicFile()
{
    Discard();
}

FileStatus AtomicFile::Open(const std::filesystem::path& target, Links links)
{
    Discard();
    if (target.empty() || HoldsZeroByte(target))
        return m_status = FileStatus::NotFound;
    if (links == Links::Followed && LeadsToNoFile(target))
        return m_status = FileStatus::NotAFile;
    m_links = links;
    m_target = links == Links::Followed ? BehindLinks(target) : target;
    std::optional<mode_t> permissions;
    m_status = CheckTarget(m_target, links, permissions);
    if (m_status != FileStatus::Ok)
        return m_status;
    m_bReplaces = permissions.has_value();

    FailWritesAtSizeLimit();
    const std::filesystem::path temporary = TemporaryName(m_target);
    RemoveOnStop(temporary);
    m_descriptor = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (m_descriptor < 0) {
        m_status = StatusFromError(errno);
        KeepOnStop(temporary);
        return m_status;
    }
    m_temporary = temporary;
    if (permissions && fchmod(m_descriptor, *permissions) != 0) {
        // Rather no new file than one that more people may read than the old one.
        const FileStatus status = StatusFromError(errno);
        Discard();
        m_status = status;
    }
    return m_status;
}

FileStatus AtomicFile::WriteThrough(std::span<const std::uint8_t> bytes)
{
    while (m_status == FileStatus::Ok && !bytes.empty()) {
        const ssize_t count = write(m_descriptor, bytes.data(), bytes.size());
        if (count >= 0)
            bytes = bytes.subspan(static_cast<std::size_t>(count));
        else if (errno != EINTR)
            m_status = StatusFromError(errno);
    }
    return m_status;
}

FileStatus AtomicFile::Overwrite(std::uint64_t offset, std::span<const std::uint8_t> bytes)
{
    if (FlushBuffer() != FileStatus::Ok)
        return m_status;
    while (!bytes.empty()) {
        const ssize_t count =
            pwrite(m_descriptor, bytes.data(), bytes.size(), static_cast<off_t>(offset));
        if (count >= 0) {
            bytes = bytes.subspan(static_cast<std::size_t>(count));
            offset += static_cast<std::uint64_t>(count);
        } else if (errno != EINTR) {
            return m_status = StatusFromError(errno);
        }
    }
    return m_status;
}

std::uint64_t AtomicFile::CopyWithinSystem(
    const PositionalFile& source, std::uint64_t offset, std::uint64_t count)
{
    constexpr auto kLastOffset = static_cast<std::uint64_t>(std::numeric_limits<off_t>::max());
    constexpr std::uint64_t kLargestPiece = std::uint64_t{1} << 30;
    std::uint64_t done = 0;
    while (done < count && offset <= kLastOffset) {
        auto position = static_cast<off_t>(offset + done);
        const auto wanted = static_cast<std::size_t>(std::min(count - done, kLargestPiece));
        const ssize_t copied =
            copy_file_range(source.m_descriptor, &position, m_descriptor, nullptr, wanted, 0);
        if (copied <= 0)
            break;
        done += static_cast<std::uint64_t>(copied);
    }
    return done;
}

FileStatus AtomicFile::Commit(Flush flush)
{
    if (m_descriptor < 0)
        return m_status;
    FileStatus status = FlushBuffer();
    const bool flushes = Flushes(flush);
    if (status == FileStatus::Ok && flushes && fsync(m_descriptor) != 0)
        status = StatusFromError(errno);
    if (close(std::exchange(m_descriptor, -1)) != 0 && status == FileStatus::Ok)
        status = StatusFromError(errno);
    if (status == FileStatus::Ok && rename(m_temporary.c_str(), m_target.c_str()) != 0)
        status = StatusFromError(errno);
    if (status == FileStatus::Ok) {
        KeepOnStop(std::exchange(m_temporary, {}));
        if (flushes)
            FlushFolder(m_target);
    }
    Discard();
    return status;
}

void AtomicFile::Discard()
{
    if (m_descriptor >= 0)
        close(std::exchange(m_descriptor, -1));
    if (!m_temporary.empty()) {
        unlink(m_temporary.c_str());
        KeepOnStop(std::exchange(m_temporary, {}));
    }
    m_buffer.clear();
    m_status = FileStatus::Failed;
}

FileStatus RemoveFile(const std::filesystem::path& path)
{
    if (HoldsZeroByte(path))
        return FileStatus::NotFound;
    return unlink(path.c_str()) == 0 ? FileStatus::Ok : StatusFromError(errno);
}

} // namespace vireo
