#include "platform/Path.h"
#include "platform/windows/WideText.h"

#include <windows.h>

namespace vireo {

std::wstring WideFromUtf8(std::string_view utf8)
{
    const int size = static_cast<int>(utf8.size());
    const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), length);
    return wide;
}

std::string Utf8FromWide(std::wstring_view wide)
{
    const int size = static_cast<int>(wide.size());
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, utf8.data(), length, nullptr, nullptr);
    return utf8;
}

std::filesystem::path PathFromUtf8(std::string_view utf8)
{
    return std::filesystem::path(WideFromUtf8(utf8));
}

std::string Utf8FromPath(const std::filesystem::path& path)
{
    return Utf8FromWide(path.native());
}

} // namespace vireo
