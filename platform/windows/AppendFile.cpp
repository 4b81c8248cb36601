#include "platform/AppendFile.h"

#include <windows.h>

namespace vireo {

bool AppendFile::Open(const std::filesystem::path& path)
{
    Close();
    // With FILE_APPEND_DATA alone the system places each write at the end by itself.
    const HANDLE handle = CreateFileW(path.c_str(), FILE_APPEND_DATA | SYNCHRONIZE,
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

bool AppendFile::Append(std::string_view text)
{
    DWORD count = 0;
    const auto size = static_cast<DWORD>(text.size());
    return WriteFile(m_handle, text.data(), size, &count, nullptr) && count == size;
}

} // namespace vireo
