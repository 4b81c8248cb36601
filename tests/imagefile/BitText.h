#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

/// Bytes from bits as people write them: "000111 010"; the last byte is filled up with zeros.
inline std::string Bits(std::string_view text)
{
    std::string bytes;
    unsigned count = 0;
    for (const char c : text) {
        if (c != '0' && c != '1')
            continue;
        if (count++ % 8 == 0)
            bytes += '\0';
        if (c == '1')
            bytes.back() = static_cast<char>(bytes.back() | (0x80 >> (count - 1) % 8));
    }
    return bytes;
}

/// The bits of codes, each in its width.
struct WideCode {
    unsigned code;
    unsigned width;
};
inline std::string Codes(const std::vector<WideCode>& codes)
{
    std::string text;
    for (const WideCode& code : codes) {
        for (unsigned bit = code.width; bit-- != 0;)
            text += (code.code >> bit & 1) != 0 ? '1' : '0';
    }
    return Bits(text);
}
/// LZW codes of 9 bits, as all are up to the 253rd behind a clear code.
inline std::string Codes9(const std::vector<unsigned>& codes)
{
    std::vector<WideCode> wide;
    for (const unsigned code : codes)
        wide.push_back({code, 9});
    return Codes(wide);
}

/// Pixels as people draw them, '#' black: 1 bits are white, and bits behind the last pixel too.
inline std::string Pixels(std::string_view drawing)
{
    std::string text;
    for (const char c : drawing)
        text += c == '#' ? '0' : '1';
    text.append((8 - text.size() % 8) % 8, '1');
    return Bits(text);
}

} // namespace vireo
