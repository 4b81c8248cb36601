#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace vireo {

/// Eight bytes, the first one highest: a window of bits, most significant first.
inline std::uint64_t LoadBigEndian64(const std::uint8_t* bytes)
{
    std::uint64_t value = 0;
    std::memcpy(&value, bytes, sizeof(value));
    if constexpr (std::endian::native == std::endian::little)
        value = __builtin_bswap64(value);
    return value;
}

inline void StoreBigEndian64(std::uint8_t* bytes, std::uint64_t value)
{
    if constexpr (std::endian::native == std::endian::little)
        value = __builtin_bswap64(value);
    std::memcpy(bytes, &value, sizeof(value));
}

} // namespace vireo
