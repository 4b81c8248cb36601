#include "platform/AppendFile.h"

#include "platform/windows/SystemPath.h"

#include <windows.h>

namespace vireo {

bool AppendFile::Open(const std::filesystem::path& path)
{
    Close();
    // With FILE_APPEND_DATA the system places each write at the end by itself; reading is for the
    // lock.
    const HANDLE handle =
        CreateFileW(SystemPath(path).c_str(), FILE_APPEND_DATA | FILE_READ_DATA | SYNCHRONIZE,
            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
            FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return false;
    m_handle = handle;
    if (GetFileType(handle) == FILE_TYPE_DISK)
        return true;
    Close();
    return false;
}

void AppendFile::Close()
{
    if (m_handle != nullptr)
        CloseHandle(m_handle);
    m_handle = nullptr;
}

namespace {

/// A writer's turn at a file. Disks of Windows append whole writes without it; network shares and
/// Wine look for the end first and write then, and two writers can find the same one. The locked
/// byte lies far behind every file's end, where nobody reads or writes.
class Turn {
public:
    explicit Turn(HANDLE file) : m_file(file)
    {
        m_place.OffsetHigh = 0x7FFF'FFFF;
        m_taken = LockFileEx(m_file, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &m_place) != FALSE;
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn()
    {
        if (m_taken)
            UnlockFileEx(m_file, 0, 1, 0, &m_place);
    }

private:
    HANDLE m_file;
    OVERLAPPED m_place{};
    bool m_taken = false;
};

} // namespace

bool AppendFile::Append(std::string_view text)
{
    const Turn turn(m_handle);
    DWORD count = 0;
    const auto size = static_cast<DWORD>(text.size());
    return WriteFile(m_handle, text.data(), size, &count, nullptr) && count == size;
}

} // namespace vireo
