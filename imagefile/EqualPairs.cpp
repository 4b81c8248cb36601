#include "imagefile/EqualPairs.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace vireo {

namespace {

constexpr std::size_t kWordBits = 64;

/// Marks the pairs of 64 bytes.
using MarkWord = std::uint64_t(const std::uint8_t* bytes);

std::uint64_t MarkWordPlain(const std::uint8_t* bytes)
{
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < kWordBits; ++i)
        word |= std::uint64_t{bytes[i] == bytes[i + 1]} << i;
    return word;
}

#if defined(__SSE2__)
std::uint64_t MarkWordWide(const std::uint8_t* bytes)
{
    constexpr std::size_t kBlock = sizeof(__m128i);
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < kWordBits; i += kBlock) {
        const auto* const place = reinterpret_cast<const __m128i*>(bytes + i);
        const auto* const next = reinterpret_cast<const __m128i*>(bytes + i + 1);
        const __m128i equal = _mm_cmpeq_epi8(_mm_loadu_si128(place), _mm_loadu_si128(next));
        word |= std::uint64_t{static_cast<std::uint32_t>(_mm_movemask_epi8(equal))} << i;
    }
    return word;
}
#else
constexpr MarkWord& MarkWordWide = MarkWordPlain;
#endif

template <MarkWord& markWord>
void Mark(const std::uint8_t* bytes, std::size_t count, std::uint64_t* words)
{
    if (count == 0)
        return;
    for (std::size_t i = 0; i < count; i += kWordBits)
        words[i / kWordBits] = markWord(bytes + i);
    // The last byte and what was read behind it make no pairs.
    words[(count - 1) / kWordBits] &= (std::uint64_t{1} << (count - 1) % kWordBits) - 1;
}

} // namespace

void MarkEqualPairs(const std::uint8_t* bytes, std::size_t count, std::uint64_t* words)
{
    Mark<MarkWordWide>(bytes, count, words);
}

void MarkEqualPairsPlain(const std::uint8_t* bytes, std::size_t count, std::uint64_t* words)
{
    Mark<MarkWordPlain>(bytes, count, words);
}

} // namespace vireo
