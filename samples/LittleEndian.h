#pragma once

#include <cstdint>
#include <string>

namespace vireo {

/// Appends the lowest `size` bytes of a number, the lowest first.
inline void AppendInteger(std::string& bytes, std::uint64_t value, int size)
{
    for (int i = 0; i < size; ++i)
        bytes += static_cast<char>(static_cast<unsigned char>(value >> (8 * i)));
}

} // namespace vireo
