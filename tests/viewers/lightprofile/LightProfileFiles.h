#pragma once

#include "platform/Text.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace vireo {

/// A file with a text header, put together by hand.
inline std::string TextFile(
    std::string_view tag, const std::string& lines, const std::string& data = {})
{
    constexpr std::size_t kPointerLine = 12 + 10 + 1;
    const std::size_t offset = tag.size() + 1 + kPointerLine + lines.size();
    return std::string(tag) + Format("\nDataPointer=%10d\n", static_cast<int>(offset)) + lines
        + data;
}

inline std::string Bytes32(std::initializer_list<std::int32_t> values)
{
    std::string bytes;
    for (const std::int32_t value : values)
        for (int byte = 0; byte < 4; ++byte)
            bytes += static_cast<char>(static_cast<std::uint32_t>(value) >> (8 * byte));
    return bytes;
}

/// A 48-byte binary header of a type, or of a mark at 20.
inline std::string OldHeader(
    char type, std::int32_t width, std::int32_t height = 0, std::int32_t mark = 0)
{
    std::string header(48, '\0');
    header[11] = type;
    header.replace(20, 4, Bytes32({mark}));
    header.replace(24, 12, Bytes32({30'000, width, height}));
    return header;
}

} // namespace vireo
