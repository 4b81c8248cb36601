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

std::filesystem::path FullPath(const std::filesystem::path& path)
{
    std::error_code error;
    const auto full = std::filesystem::absolute(path, error);
    return (error ? path : full).lexically_normal();
}

bool IsFullPath(const std::filesystem::path& path)
{
    return path.is_absolute();
}

} // namespace vireo
