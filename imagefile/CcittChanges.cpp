#include "imagefile/CcittChanges.h"

#include "imagefile/TifBits.h"

#include <algorithm>
#include <bit>
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
    for (std::uint32_t start = 0; start < m_width; start += kWordBits) {
        const std::uint64_t black = ~LoadBigEndian64(row + start / 8);
        std::uint64_t changes = black ^ (black >> 1 | before << (kWordBits - 1));
        before = black;
        if (const std::uint32_t left = m_width - start; left < kWordBits)
            changes &= ~(~std::uint64_t{0} >> left);
        if (changes != 0)
            out = PutPlaces(Mirrored(changes), static_cast<std::int32_t>(start), out);
    }
    PutEnd(out);
}

} // namespace vireo
