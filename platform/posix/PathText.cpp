#include "platform/Path.h"

namespace vireo {

std::filesystem::path PathFromUtf8(std::string_view utf8)
{
    return std::filesystem::path(std::string(utf8));
}

std::string Utf8FromPath(const std::filesystem::path& path)
{
    return path.native();
}

} // namespace vireo
