#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vireo {

/// Values of the registry below HKEY_CURRENT_USER. Names of keys and values are UTF-8; the empty
/// name is a key's default value.

/// A value as it is stored, of whatever type.
struct RegistryValue {
    std::uint32_t type = 0;
    std::vector<std::uint8_t> bytes;
};

/// The value; nothing when there is none.
std::optional<RegistryValue> ReadUserValue(const std::string& key, const std::string& name);
/// A text value with its variables unexpanded; empty when there is none and for other types.
std::string ReadUserText(const std::string& key, const std::string& name);

/// Writes a value, and makes the keys that lead to it. Whether it is there now.
bool WriteUserValue(const std::string& key, const std::string& name, const RegistryValue& value);
bool WriteUserText(const std::string& key, const std::string& name, const std::string& text);

/// Each gives whether the thing is not there any more, also when it never was.
bool RemoveUserValue(const std::string& key, const std::string& name);
bool RemoveUserKeyWithAllBelow(const std::string& key);
/// Removes a key that holds neither values nor keys; any other stays, which counts as done too.
bool RemoveEmptyUserKey(const std::string& key);

} // namespace vireo
