#include "platform/AtomicFile.h"

#include "platform/windows/SystemError.h"
#include "platform/windows/SystemPath.h"

#include <algorithm>
#include <utility>

namespace vireo {

namespace {

/// What may be put at the target: nothing stands there, or a file that may be written to.
FileStatus CheckTarget(const std::filesystem::path& target, bool& exists)
{
    const DWORD attributes = GetFileAttributesW(target.c_str());
    exists = attributes != INVALID_FILE_ATTRIBUTES;
    if (!exists) {
        const DWORD error = GetLastError();
        return error == ERROR_FILE_NOT_FOUND ? FileStatus::Ok : StatusFromError(error);
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return FileStatus::IsFolder;
    return (attributes & FILE_ATTRIBUTE_READONLY) != 0 ? FileStatus::AccessDenied : FileStatus::Ok;
}

/// Whether another program has the target open so that it cannot be replaced. When replacing is
/// tried the system says that access is denied, which would send the user looking for rights.
bool IsKeptOpen(const std::filesystem::path& target)
{
    const HANDLE handle =
        CreateFileW(target.c_str(), DELETE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
            nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_SHARING_VIOLATION;
    CloseHandle(handle);
    return false;
}

/// Whether an open file goes when it is closed, as it is however the program ends.
bool SetVanishing(HANDLE handle, bool vanishes)
{
    FILE_DISPOSITION_INFO disposition = {};
    disposition.DeleteFile = vanishes;
    return SetFileInformationByHandle(
        handle, FileDispositionInfo, &disposition, sizeof(disposition));
}

/// Puts the temporary file in the target's place. Replacing keeps the target's attributes and
/// access rights, so it is tried first, where a link may be followed; it needs a target and a file
/// system that can do it.
FileStatus MoveIntoPlace(const std::filesystem::path& temporary,
    const std::filesystem::path& target, AtomicFile::Links links, bool flushes)
{
    if (IsKeptOpen(target))
        return FileStatus::SharingViolation;
    if (links == AtomicFile::Links::Followed
        && ReplaceFileW(target.c_str(), temporary.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS,
            nullptr, nullptr))
        return FileStatus::Ok;
    if (MoveFileExW(temporary.c_str(), target.c_str(),
            MOVEFILE_REPLACE_EXISTING | (flushes ? MOVEFILE_WRITE_THROUGH : 0U)))
        return FileStatus::Ok;
    return StatusFromError(GetLastError());
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
    m_links = links;
    m_target = SystemPath(target);
    m_status = CheckTarget(m_target, m_bReplaces);
    if (m_status != FileStatus::Ok)
        return m_status;

    const std::filesystem::path temporary = SystemPath(TemporaryName(m_target));
    const HANDLE handle = CreateFileW(temporary.c_str(), GENERIC_WRITE | DELETE, 0, nullptr,
        CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return m_status = StatusFromError(GetLastError());
    // Where the file system cannot, a program that is killed leaves the file behind.
    SetVanishing(handle, true);
    m_handle = handle;
    m_temporary = temporary;
    return m_status;
}

FileStatus AtomicFile::WriteThrough(std::span<const std::uint8_t> bytes)
{
    constexpr std::size_t kLargestWrite = std::size_t{1} << 30;
    while (m_status == FileStatus::Ok && !bytes.empty()) {
        DWORD count = 0;
        const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kLargestWrite));
        if (WriteFile(m_handle, bytes.data(), wanted, &count, nullptr))
            bytes = bytes.subspan(count);
        else
            m_status = StatusFromError(GetLastError());
    }
    return m_status;
}

FileStatus AtomicFile::Overwrite(std::uint64_t offset, std::span<const std::uint8_t> bytes)
{
    if (FlushBuffer() != FileStatus::Ok)
        return m_status;
    LARGE_INTEGER position;
    position.QuadPart = static_cast<LONGLONG>(offset);
    if (!SetFilePointerEx(m_handle, position, nullptr, FILE_BEGIN))
        return m_status = StatusFromError(GetLastError());
    static_cast<void>(WriteThrough(bytes)); // Kept in m_status.
    position.QuadPart = 0;
    if (!SetFilePointerEx(m_handle, position, nullptr, FILE_END) && m_status == FileStatus::Ok)
        m_status = StatusFromError(GetLastError());
    return m_status;
}

std::uint64_t AtomicFile::CopyWithinSystem(const PositionalFile&, std::uint64_t, std::uint64_t)
{
    return 0; // The system copies whole files only.
}

FileStatus AtomicFile::Commit(Flush flush)
{
    if (m_handle == nullptr)
        return m_status;
    FileStatus status = FlushBuffer();
    const bool flushes = Flushes(flush);
    if (status == FileStatus::Ok && flushes && !FlushFileBuffers(m_handle))
        status = StatusFromError(GetLastError());
    if (status == FileStatus::Ok)
        SetVanishing(m_handle, false);
    CloseHandle(std::exchange(m_handle, nullptr));
    if (status == FileStatus::Ok)
        status = MoveIntoPlace(m_temporary, m_target, m_links, flushes);
    if (status == FileStatus::Ok)
        m_temporary.clear();
    Discard();
    return status;
}

void AtomicFile::Discard()
{
    if (m_handle != nullptr)
        CloseHandle(std::exchange(m_handle, nullptr));
    if (!m_temporary.empty())
        DeleteFileW(m_temporary.c_str());
    m_temporary.clear();
    m_buffer.clear();
    m_status = FileStatus::Failed;
}

FileStatus RemoveFile(const std::filesystem::path& path)
{
    if (HoldsZeroByte(path))
        return FileStatus::NotFound;
    return DeleteFileW(SystemPath(path).c_str()) ? FileStatus::Ok : StatusFromError(GetLastError());
}

} // namespace vireo
