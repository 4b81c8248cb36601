#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace vireo {

/// The running executable; empty when the system cannot tell.
std::filesystem::path ProgramPath();
/// The file of a module loaded into this process, by its file name such as "Kestr6.exe"; empty when
/// none of that name is loaded, and always so where programs are not modules (Linux).
std::filesystem::path LoadedModulePath(const std::string& name);
/// The folder of the running executable; empty when the system cannot tell.
std::filesystem::path ProgramFolder();

/// Where the user's program state (logs, recent files) lives; not created. Linux:
/// $XDG_STATE_HOME/vireo or ~/.local/state/vireo; Windows: %LOCALAPPDATA%\Vireo.
std::filesystem::path StateFolder();
/// Where the user's settings live; not created. Linux: $XDG_CONFIG_HOME/vireo or ~/.config/vireo;
/// Windows: %APPDATA%\Vireo.
std::filesystem::path ConfigFolder();
/// The folders that hold ICC profiles, the first to be searched first. Windows: the system's colour
/// directory; Linux: the user's and the system's share/color/icc folders.
std::vector<std::filesystem::path> ColourProfileFolders();

} // namespace vireo
