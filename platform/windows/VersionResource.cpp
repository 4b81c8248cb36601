#include "platform/VersionResource.h"

#include "platform/Text.h"
#include "platform/windows/WideText.h"

#include <windows.h>

namespace vireo {

// The wide functions: those for 8-bit text would lose module paths outside the user's code page and
// give the texts in that page, whichever it is, rather than in Windows-1252.

bool VersionResource::Load(const std::filesystem::path& module)
{
    DWORD unused = 0;
    const DWORD size = GetFileVersionInfoSizeW(module.c_str(), &unused);
    m_block.assign(size, 0);
    if (size > 0 && GetFileVersionInfoW(module.c_str(), 0, size, m_block.data()))
        return true;
    m_block.clear();
    return false;
}

std::vector<std::uint8_t> VersionResource::FixedFileInfo() const
{
    void* value = nullptr;
    UINT size = 0;
    if (m_block.empty() || !VerQueryValueW(m_block.data(), L"\\", &value, &size))
        return {};
    const auto* const bytes = static_cast<const std::uint8_t*>(value);
    return {bytes, bytes + size};
}

std::string VersionResource::Text(const std::string& queryPath) const
{
    void* value = nullptr;
    UINT length = 0;
    const std::wstring path = WideFromUtf8(queryPath);
    if (m_block.empty() || !VerQueryValueW(m_block.data(), path.c_str(), &value, &length))
        return {};
    std::wstring_view text(static_cast<const wchar_t*>(value), length);
    text = text.substr(0, text.find(L'\0'));
    return Windows1252FromUtf8(Utf8FromWide(text));
}

} // namespace vireo
