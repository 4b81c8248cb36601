#include "platform/KnownFolders.h"

#include "platform/windows/WideText.h"

#include <windows.h>

#include <array>
// These need windows.h before them.
#include <icm.h>
#include <knownfolders.h>
#include <objbase.h>
#include <shlobj.h>
#include <string>

namespace vireo {

namespace {

/// The file of a module; of the program itself for null.
std::filesystem::path PathOfModule(HMODULE module)
{
    constexpr std::size_t kLongestPath = 32768;
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0)
            return {};
        if (length < path.size())
            return path.substr(0, length);
        if (path.size() >= kLongestPath)
            return {};
        path.resize(path.size() * 2);
    }
}

} // namespace

std::filesystem::path ProgramPath()
{
    return PathOfModule(nullptr);
}

std::filesystem::path LoadedModulePath(const std::string& name)
{
    const HMODULE module = GetModuleHandleW(WideFromUtf8(name).c_str());
    return module == nullptr ? std::filesystem::path() : PathOfModule(module);
}

std::filesystem::path ProgramFolder()
{
    return ProgramPath().parent_path();
}

namespace {

/// The program's folder in one of the user's known folders; empty when the system knows none.
std::filesystem::path VireoFolderIn(const KNOWNFOLDERID& identifier)
{
    PWSTR text = nullptr;
    std::filesystem::path folder;
    if (SUCCEEDED(SHGetKnownFolderPath(identifier, 0, nullptr, &text)))
        folder = std::filesystem::path(text) / L"Vireo";
    CoTaskMemFree(text);
    return folder;
}

} // namespace

std::filesystem::path StateFolder()
{
    return VireoFolderIn(FOLDERID_LocalAppData);
}

std::filesystem::path ConfigFolder()
{
    return VireoFolderIn(FOLDERID_RoamingAppData);
}

std::vector<std::filesystem::path> ColourProfileFolders()
{
    std::array<wchar_t, MAX_PATH> folder = {};
    auto bytes = static_cast<DWORD>(sizeof(folder));
    if (!GetColorDirectoryW(nullptr, folder.data(), &bytes))
        return {};
    return {std::filesystem::path(folder.data())};
}

} // namespace vireo
