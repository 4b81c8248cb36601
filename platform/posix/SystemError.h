#pragma once

#include "platform/PositionalFile.h"

#include <cerrno>

namespace vireo {

/// The file status that an error number of the system stands for.
inline FileStatus StatusFromError(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ELOOP: // A link that leads to itself leads to nothing.
        return FileStatus::NotFound;
    case EACCES:
    case EPERM:
    case EROFS:
        return FileStatus::AccessDenied;
    case EISDIR:
        return FileStatus::IsFolder;
    case ENOSPC:
    case EDQUOT:
        return FileStatus::DiskFull;
    case EFBIG:
        return FileStatus::TooLarge;
    default:
        return FileStatus::Failed;
    }
}

/// Whether the system would cut the path at a zero byte and so take another file.
inline bool HoldsZeroByte(const std::filesystem::path& path)
{
    return path.native().find('\0') != std::string::npos;
}

} // namespace vireo
