#include "platform/windows/SystemPath.h"

#include <windows.h>

#include <string>

namespace vireo {

namespace {

/// The path from its drive or share on, with the system's separators and without "." and "..";
/// empty when the system cannot tell.
std::wstring FullPath(const std::filesystem::path& path)
{
    const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    const DWORD length = GetFullPathNameW(path.c_str(), size, full.data(), nullptr);
    full.resize(length < size ? length : 0);
    return full;
}

} // namespace

std::filesystem::path SystemPath(const std::filesystem::path& path)
{
    // Files end at 260 characters, with a zero, and folders twelve before.
    constexpr std::size_t kAlwaysShort = 240;
    if (path.native().size() < kAlwaysShort && !path.is_relative())
        return path;
    const std::wstring full = FullPath(path);
    if (full.size() < kAlwaysShort || full.starts_with(LR"(\\?\)") || full.starts_with(LR"(\\.\)"))
        return path;
    if (full.starts_with(LR"(\\)"))
        return LR"(\\?\UNC)" + full.substr(1);
    return LR"(\\?\)" + full;
}

} // namespace vireo
