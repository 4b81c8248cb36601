#include "platform/FileIdentity.h"

namespace vireo {

bool IsSameFile(const std::filesystem::path& left, const std::filesystem::path& right)
{
    FileIdentity one;
    FileIdentity other;
    return ReadIdentity(left, one) == FileStatus::Ok && ReadIdentity(right, other) == FileStatus::Ok
        && one == other;
}

} // namespace vireo
