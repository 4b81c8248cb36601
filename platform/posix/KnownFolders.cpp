#include "platform/KnownFolders.h"

#include "platform/HandOver.h"

#include <cstdlib>
#include <pwd.h>
#include <string>
#include <string_view>
#include <system_error>
#include <unistd.h>

namespace vireo {

namespace {

std::filesystem::path& ReplacedProgram()
{
    static std::filesystem::path program;
    return program;
}

} // namespace

void StandInFor(const std::filesystem::path& program)
{
    ReplacedProgram() = program;
}

std::filesystem::path ProgramPath()
{
    if (!ReplacedProgram().empty())
        return ReplacedProgram();
    std::error_code error;
    const std::filesystem::path path = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::filesystem::path() : path;
}

std::filesystem::path LoadedModulePath(const std::string&)
{
    return {};
}

std::filesystem::path ProgramFolder()
{
    return ProgramPath().parent_path();
}

namespace {

std::string Environment(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

/// The user's home folder; empty when there is none.
std::filesystem::path HomeFolder()
{
    if (std::filesystem::path home = Environment("HOME"); home.is_absolute())
        return home;
    const passwd* const user = getpwuid(getuid());
    return user == nullptr || user->pw_dir == nullptr ? "" : user->pw_dir;
}

/// A base folder of the desktop's folder standard, which lets relative values be ignored.
std::filesystem::path BaseFolder(const char* variable, const char* underHome)
{
    if (std::filesystem::path folder = Environment(variable); folder.is_absolute())
        return folder;
    const std::filesystem::path home = HomeFolder();
    return home.empty() ? home : home / underHome;
}

std::filesystem::path VireoFolderIn(const std::filesystem::path& base)
{
    return base.empty() ? base : base / "vireo";
}

} // namespace

std::filesystem::path StateFolder()
{
    return VireoFolderIn(BaseFolder("XDG_STATE_HOME", ".local/state"));
}

std::filesystem::path ConfigFolder()
{
    return VireoFolderIn(BaseFolder("XDG_CONFIG_HOME", ".config"));
}

std::vector<std::filesystem::path> ColourProfileFolders()
{
    std::vector<std::filesystem::path> folders;
    if (const std::filesystem::path user = BaseFolder("XDG_DATA_HOME", ".local/share");
        !user.empty())
        folders.push_back(user / "color/icc");

    std::string system = Environment("XDG_DATA_DIRS");
    if (system.empty())
        system = "/usr/local/share:/usr/share";
    for (std::string_view rest = system; !rest.empty();) {
        const auto colon = rest.find(':');
        if (const std::filesystem::path folder = rest.substr(0, colon); folder.is_absolute())
            folders.push_back(folder / "color/icc");
        rest.remove_prefix(colon == std::string_view::npos ? rest.size() : colon + 1);
    }
    return folders;
}

} // namespace vireo
