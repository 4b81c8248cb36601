#include "app/LoadPath.h"

#include "platform/Path.h"

#include <algorithm>
#include <string>
#include <system_error>

namespace vireo {

namespace {
bool Exists(const std::filesystem::path& path)
{
    std::error_code error;
    return std::filesystem::exists(path, error);
}
} // namespace

std::filesystem::path LoadPath(std::string_view name)
{
    const auto asGiven = PathFromUtf8(name);
    if (Exists(asGiven))
        return asGiven;

    // The closing quote of a network path arrives as a blank.
    std::string text(name.substr(0, name.find_last_not_of(' ') + 1));
    const auto trimmed = PathFromUtf8(text);
    if (Exists(trimmed))
        return trimmed;

    std::ranges::replace(text, '\\', '/');
    const auto turned = PathFromUtf8(text);
    return Exists(turned) ? turned : trimmed;
}

} // namespace vireo
