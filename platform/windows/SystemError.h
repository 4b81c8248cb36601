#pragma once

#include "platform/PositionalFile.h"
#include "platform/windows/SystemPath.h"

#include <windows.h>

namespace vireo {

/// The file status that an error code of the system stands for.
inline FileStatus StatusFromError(DWORD error)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_NOT_READY:
        return FileStatus::NotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
        return FileStatus::AccessDenied;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
        return FileStatus::SharingViolation;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return FileStatus::DiskFull;
    case ERROR_FILE_TOO_LARGE:
        return FileStatus::TooLarge;
    default:
        return FileStatus::Failed;
    }
}

inline bool IsFolder(const std::filesystem::path& path)
{
    const DWORD attributes = GetFileAttributesW(SystemPath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// Whether the system would cut the path at a zero and so take another file.
inline bool HoldsZeroByte(const std::filesystem::path& path)
{
    return path.native().find(L'\0') != std::wstring::npos;
}

} // namespace vireo
