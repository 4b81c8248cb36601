#include "imagefile/CcittChanges.h"

#include "imagefile/TifBits.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <new>

namespace vireo {

namespace {

constexpr std::uint32_t kWordBits = 64;

/// The bits in the opposite order.
std::uint64_t Mirrored(std::uint64_t bits)
{
    constexpr std::uint64_t kOnes = 0x5555555555555555;
    constexpr std::uint64_t kTwos = 0x3333333333333333;
    constexpr std::uint64_t kFours = 0x0f0f0f0f0f0f0f0f;
    bits = (bits >> 1 & kOnes) | (bits & kOnes) << 1;
    bits = (bits >> 2 & kTwos) | (bits & kTwos) << 2;
    bits = (bits >> 4 & kFours) | (bits & kFours) << 4;
    return __builtin_bswap64(bits);
}

/// Puts down where the bits are, counted from the lowest, two in each step whether there are two or
/// not: how many there are is hard for the processor to guess.
std::int32_t* PutPlaces(std::uint64_t bits, std::int32_t start, std::int32_t* out)
{
    constexpr std::uint64_t kLast = std::uint64_t{1} << (kWordBits - 1);
    do {
        out[0] = start + std::countr_zero(bits);
        bits &= bits - 1;
        out[1] = start + std::countr_zero(bits | kLast);
        out += bits != 0 ? 2 : 1;
        bits &= bits - 1;
    } while (bits != 0);
    return out;
}

/// Passes over groups of words that are of one colour, from a pixel on, and returns the first that
/// may not be: most of a page is paper.
std::uint32_t SkipPlain(
    const std::uint8_t* row, std::uint32_t start, std::uint32_t width, bool isBlack)
{
    constexpr std::uint32_t kWords = 4;
    const std::uint64_t plain = isBlack ? 0 : ~std::uint64_t{0};
    for (; start + kWords * kWordBits <= width; start += kWords * kWordBits) {
        std::uint64_t words[kWords];
        std::memcpy(words, row + start / 8, sizeof(words));
        if (((words[0] ^ plain) | (words[1] ^ plain) | (words[2] ^ plain) | (words[3] ^ plain))
            != 0)
            break;
    }
    return start;
}

} // namespace

bool CcittChanges::Allocate(std::uint32_t width)
{
    try {
        m_changes =
            std::make_unique_for_overwrite<std::int32_t[]>(kBefore + std::size_t{width} + kBehind);
    } catch (const std::bad_alloc&) {
        return false;
    }
    m_width = width;
    m_changes[0] = 0;
    PutEnd(m_changes.get() + kBefore);
    return true;
}

void CcittChanges::PutEnd(std::int32_t* end)
{
    m_count = static_cast<std::size_t>(end - begin());
    std::fill_n(end, kBehind, static_cast<std::int32_t>(m_width));
}

void CcittChanges::Find(const std::uint8_t* row)
{
    std::int32_t* out = m_changes.get() + kBefore;
    std::uint64_t before = 0; // The pixel left of the 64: the lowest bit, 1 for black.
    for (std::uint32_t start = 0; start < m_width;) {
        const std::uint64_t black = ~LoadBigEndian64(row + start / 8);
        std::uint64_t changes = black ^ (black >> 1 | before << (kWordBits - 1));
        before = black;
        if (const std::uint32_t left = m_width - start; left < kWordBits)
            changes &= ~(~std::uint64_t{0} >> left);
        if (changes != 0)
            out = PutPlaces(Mirrored(changes), static_cast<std::int32_t>(start), out);
        start += kWordBits;
        if (changes == 0)
            start = SkipPlain(row, start, m_width, (before & 1) != 0);
    }
    PutEnd(out);
}

} // namespace vireo
