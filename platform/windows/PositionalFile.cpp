#include "platform/PositionalFile.h"

#include "platform/windows/SystemError.h"
#include "platform/windows/SystemPath.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace vireo {

PositionalFile::PositionalFile(PositionalFile&& other) noexcept
    : m_handle(std::exchange(other.m_handle, nullptr)),
      m_size(std::exchange(other.m_size, 0))
{
}

PositionalFile& PositionalFile::operator=(PositionalFile&& other) noexcept
{
    if (this != &other) {
        Close();
        m_handle = std::exchange(other.m_handle, nullptr);
        m_size = std::exchange(other.m_size, 0);
    }
    return *this;
}

PositionalFile::~PositionalFile()
{
    Close();
}

FileStatus PositionalFile::Open(const std::filesystem::path& path, Sharing sharing)
{
    Close();
    if (HoldsZeroByte(path))
        return FileStatus::NotFound;
    const DWORD share = sharing == Sharing::ReadersOnly
        ? DWORD{FILE_SHARE_READ}
        : DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE};
    const HANDLE handle = CreateFileW(SystemPath(path).c_str(), GENERIC_READ, share, nullptr,
        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        return IsFolder(path) ? FileStatus::IsFolder : StatusFromError(error);
    }

    m_handle = handle;
    LARGE_INTEGER size = {};
    const bool isFile = GetFileType(handle) == FILE_TYPE_DISK;
    if (!isFile || !GetFileSizeEx(handle, &size)) {
        Close();
        return isFile ? FileStatus::Failed : FileStatus::NotAFile;
    }
    m_size = static_cast<std::uint64_t>(size.QuadPart);
    return FileStatus::Ok;
}

void PositionalFile::Close()
{
    if (m_handle != nullptr)
        CloseHandle(m_handle);
    m_handle = nullptr;
    m_size = 0;
}

bool PositionalFile::IsOpen() const
{
    return m_handle != nullptr;
}

std::size_t PositionalFile::ReadAt(std::uint64_t offset, std::span<std::uint8_t> buffer) const
{
    constexpr std::size_t kLargestRead = std::size_t{1} << 30;
    constexpr auto kLastOffset =
        static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (m_handle == nullptr || offset > kLastOffset)
        return 0;
    buffer = buffer.first(
        static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), kLastOffset - offset)));

    std::size_t done = 0;
    while (done < buffer.size()) {
        const std::uint64_t position = offset + done;
        OVERLAPPED where = {};
        where.Offset = static_cast<DWORD>(position & 0xFFFFFFFF);
        where.OffsetHigh = static_cast<DWORD>(position >> 32);
        const auto wanted = static_cast<DWORD>(std::min(buffer.size() - done, kLargestRead));
        DWORD count = 0;
        if (!ReadFile(m_handle, buffer.data() + done, wanted, &count, &where) || count == 0)
            break;
        done += count;
    }
    return done;
}

} // namespace vireo
