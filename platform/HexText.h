#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace vireo {

/// Bytes as lower-case hexadecimal digits, two a byte.
inline std::string HexText(std::span<const std::uint8_t> bytes)
{
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    text.reserve(2 * bytes.size());
    for (const std::uint8_t byte : bytes) {
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return text;
}

} // namespace vireo
