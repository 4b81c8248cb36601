#include "platform/FileIdentity.h"

#include "platform/posix/SystemError.h"

#include <sys/stat.h>

namespace vireo {

FileStatus ReadIdentity(const std::filesystem::path& path, FileIdentity& identity)
{
    if (HoldsZeroByte(path))
        return FileStatus::NotFound;
    struct stat information = {};
    if (stat(path.c_str(), &information) != 0)
        return StatusFromError(errno);
    identity = {static_cast<std::uint64_t>(information.st_dev),
        static_cast<std::uint64_t>(information.st_ino)};
    return FileStatus::Ok;
}

} // namespace vireo
