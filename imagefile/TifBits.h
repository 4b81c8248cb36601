#pragma once

#include <bit>
#include <cstddef>
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

/// The next bits of an input, highest first, in a register.
struct BitWindow {
    const std::uint8_t* next; ///< The first byte of which not all is in `bits`.
    std::uint64_t bits = 0;
    unsigned have = 0; ///< Valid bits; below them may be more of the input.

    /// Puts at least 56 bits at hand, without a branch. Reads 8 bytes and uses up to 7.
    void Refill()
    {
        bits |= LoadBigEndian64(next) >> have;
        next += (63 - have) / 8;
        have |= 56;
    }
    void Drop(unsigned count)
    {
        bits <<= count;
        have -= count;
    }
};

/// Copies bytes that do not overlap, in pieces that the C library copies with vector instructions.
/// Larger ones it gives to the processor's string copy, which on some processors goes at 2.3
/// instead of 10 GB/s where the target's place in its page is up to 64 bytes ahead of the source's.
inline void CopyInPieces(std::uint8_t* to, const std::uint8_t* from, std::size_t count)
{
    constexpr std::size_t kPiece = 1024;
    for (; count > kPiece; count -= kPiece) {
        std::memcpy(to, from, kPiece);
        to += kPiece;
        from += kPiece;
    }
    std::memcpy(to, from, count);
}

} // namespace vireo
