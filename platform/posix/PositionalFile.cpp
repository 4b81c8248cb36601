#include "platform/PositionalFile.h"

#include "platform/posix/SystemError.h"

#include <algorithm>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace vireo {

PositionalFile::PositionalFile(PositionalFile&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1)),
      m_size(std::exchange(other.m_size, 0))
{
}

PositionalFile& PositionalFile::operator=(PositionalFile&& other) noexcept
{
    if (this != &other) {
        Close();
        m_descriptor = std::exchange(other.m_descriptor, -1);
        m_size = std::exchange(other.m_size, 0);
    }
    return *this;
}

PositionalFile::~PositionalFile()
{
    Close();
}

FileStatus PositionalFile::Open(const std::filesystem::path& path, Sharing)
{
    Close();
    if (HoldsZeroByte(path))
        return FileStatus::NotFound;
    // Without O_NONBLOCK a pipe that nobody writes to would hang us here.
    m_descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (m_descriptor < 0)
        return StatusFromError(errno);

    struct stat information = {};
    if (fstat(m_descriptor, &information) != 0) {
        Close();
        return FileStatus::Failed;
    }
    if (!S_ISREG(information.st_mode)) {
        Close();
        return S_ISDIR(information.st_mode) ? FileStatus::IsFolder : FileStatus::NotAFile;
    }
    m_size = static_cast<std::uint64_t>(information.st_size);
    return FileStatus::Ok;
}

void PositionalFile::Close()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
    m_descriptor = -1;
    m_size = 0;
}

bool PositionalFile::IsOpen() const
{
    return m_descriptor >= 0;
}

std::size_t PositionalFile::ReadAt(std::uint64_t offset, std::span<std::uint8_t> buffer) const
{
    constexpr auto kLastOffset = static_cast<std::uint64_t>(std::numeric_limits<off_t>::max());
    if (offset > kLastOffset)
        return 0;
    buffer = buffer.first(
        static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), kLastOffset - offset)));

    std::size_t done = 0;
    while (done < buffer.size()) {
        const ssize_t count = pread(m_descriptor, buffer.data() + done, buffer.size() - done,
            static_cast<off_t>(offset + done));
        if (count > 0)
            done += static_cast<std::size_t>(count);
        else if (count == 0 || errno != EINTR)
            break;
    }
    return done;
}

} // namespace vireo
