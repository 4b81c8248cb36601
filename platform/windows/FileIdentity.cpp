#include "platform/FileIdentity.h"

#include "platform/windows/SystemError.h"

namespace vireo {

FileStatus ReadIdentity(const std::filesystem::path& path, FileIdentity& identity)
{
    if (HoldsZeroByte(path))
        return FileStatus::NotFound;
    // Nothing is read, and folders open with the rights of a backup only.
    const HANDLE handle = CreateFileW(SystemPath(path).c_str(), 0,
        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
        FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return StatusFromError(GetLastError());
    BY_HANDLE_FILE_INFORMATION information = {};
    const bool isKnown = GetFileInformationByHandle(handle, &information);
    const DWORD error = GetLastError();
    CloseHandle(handle);
    if (!isKnown)
        return StatusFromError(error);
    identity = {information.dwVolumeSerialNumber,
        std::uint64_t{information.nFileIndexHigh} << 32 | information.nFileIndexLow};
    return FileStatus::Ok;
}

} // namespace vireo
