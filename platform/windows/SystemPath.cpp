#include "platform/windows/SystemPath.h"

#include "platform/Path.h"

#include <windows.h>

#include <string>
#include <utility>

namespace vireo {

namespace {

/// With the system's separators; empty when the system cannot tell.
std::wstring FullText(const std::filesystem::path& path)
{
    const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    const DWORD length = GetFullPathNameW(path.c_str(), size, full.data(), nullptr);
    full.resize(length < size ? length : 0);
    return full;
}

bool IsSeparator(wchar_t character)
{
    return character == L'\\' || character == L'/';
}

} // namespace

std::filesystem::path FullPath(const std::filesystem::path& path)
{
    std::wstring full = FullText(path);
    return full.empty() ? path : std::filesystem::path(std::move(full));
}

bool IsFullPath(const std::filesystem::path& path)
{
    const std::wstring& text = path.native();
    return path.is_absolute() || (text.size() > 2 && IsSeparator(text[0]) && IsSeparator(text[1]));
}

std::filesystem::path SystemPath(const std::filesystem::path& path)
{
    // Files end at 260 characters, with a zero, and folders twelve before.
    constexpr std::size_t kAlwaysShort = 240;
    if (path.native().size() < kAlwaysShort && !path.is_relative())
        return path;
    const std::wstring full = FullText(path);
    if (full.size() < kAlwaysShort || full.starts_with(LR"(\\?\)") || full.starts_with(LR"(\\.\)"))
        return path;
    if (full.starts_with(LR"(\\)"))
        return LR"(\\?\UNC)" + full.substr(1);
    return LR"(\\?\)" + full;
}

} // namespace vireo
