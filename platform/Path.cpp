#include "platform/Path.h"

namespace vireo {

std::string ShownPath(std::filesystem::path path)
{
    return Utf8FromPath(path.make_preferred());
}

std::filesystem::path FolderOf(const std::filesystem::path& file)
{
    return file.has_parent_path() ? file.parent_path() : ".";
}

PathParts SplitPath(std::string_view path)
{
    PathParts parts;
    if (path.size() >= 2 && path[1] == ':') {
        parts.drive = path.substr(0, 2);
        path.remove_prefix(2);
    }
    const auto separator = path.find_last_of("\\/");
    if (separator != std::string_view::npos) {
        parts.folder = path.substr(0, separator + 1);
        path.remove_prefix(separator + 1);
    }
    const auto dot = path.rfind('.');
    parts.name = path.substr(0, dot);
    if (dot != std::string_view::npos)
        parts.extension = path.substr(dot);
    return parts;
}

} // namespace vireo
