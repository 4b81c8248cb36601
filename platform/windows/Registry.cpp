#include "platform/windows/Registry.h"

#include "platform/windows/WideText.h"

#include <windows.h>

namespace vireo {

namespace {

bool IsGone(LSTATUS status)
{
    return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND
        || status == ERROR_PATH_NOT_FOUND;
}

} // namespace

std::optional<RegistryValue> ReadUserValue(const std::string& key, const std::string& name)
{
    const std::wstring wideKey = WideFromUtf8(key);
    const std::wstring wideName = WideFromUtf8(name);
    constexpr DWORD kAsStored = RRF_RT_ANY | RRF_NOEXPAND;
    DWORD type = 0;
    DWORD size = 0;
    if (RegGetValueW(
            HKEY_CURRENT_USER, wideKey.c_str(), wideName.c_str(), kAsStored, &type, nullptr, &size)
        != ERROR_SUCCESS)
        return std::nullopt;
    RegistryValue value;
    value.bytes.resize(size);
    // A value that has grown meanwhile is none that we could keep.
    if (RegGetValueW(HKEY_CURRENT_USER, wideKey.c_str(), wideName.c_str(), kAsStored, &type,
            value.bytes.data(), &size)
        != ERROR_SUCCESS)
        return std::nullopt;
    value.bytes.resize(size);
    value.type = type;
    return value;
}

std::string ReadUserText(const std::string& key, const std::string& name)
{
    const auto value = ReadUserValue(key, name);
    if (!value || (value->type != REG_SZ && value->type != REG_EXPAND_SZ))
        return {};
    const auto* const text = reinterpret_cast<const wchar_t*>(value->bytes.data());
    const std::wstring_view wide(text, value->bytes.size() / sizeof(wchar_t));
    return Utf8FromWide(wide.substr(0, wide.find(L'\0')));
}

bool WriteUserValue(const std::string& key, const std::string& name, const RegistryValue& value)
{
    return RegSetKeyValueW(HKEY_CURRENT_USER, WideFromUtf8(key).c_str(), WideFromUtf8(name).c_str(),
               value.type, value.bytes.data(), static_cast<DWORD>(value.bytes.size()))
        == ERROR_SUCCESS;
}

bool WriteUserText(const std::string& key, const std::string& name, const std::string& text)
{
    const std::wstring wide = WideFromUtf8(text);
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(wide.c_str());
    return WriteUserValue(
        key, name, {REG_SZ, {bytes, bytes + (wide.size() + 1) * sizeof(wchar_t)}});
}

bool RemoveUserValue(const std::string& key, const std::string& name)
{
    return IsGone(RegDeleteKeyValueW(
        HKEY_CURRENT_USER, WideFromUtf8(key).c_str(), WideFromUtf8(name).c_str()));
}

bool RemoveUserKeyWithAllBelow(const std::string& key)
{
    return IsGone(RegDeleteTreeW(HKEY_CURRENT_USER, WideFromUtf8(key).c_str()));
}

bool RemoveEmptyUserKey(const std::string& key)
{
    const std::wstring wideKey = WideFromUtf8(key);
    HKEY handle = nullptr;
    if (const LSTATUS status =
            RegOpenKeyExW(HKEY_CURRENT_USER, wideKey.c_str(), 0, KEY_READ, &handle);
        status != ERROR_SUCCESS)
        return IsGone(status);
    DWORD keys = 0;
    DWORD values = 0;
    const LSTATUS status = RegQueryInfoKeyW(handle, nullptr, nullptr, nullptr, &keys, nullptr,
        nullptr, &values, nullptr, nullptr, nullptr, nullptr);
    RegCloseKey(handle);
    if (status != ERROR_SUCCESS)
        return false;
    return keys > 0 || values > 0 || IsGone(RegDeleteKeyW(HKEY_CURRENT_USER, wideKey.c_str()));
}

} // namespace vireo
