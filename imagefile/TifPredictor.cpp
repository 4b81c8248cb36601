#include "imagefile/TifPredictor.h"

#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace vireo {

namespace {

/// Sums stay in registers: read back from memory, each would wait for the store of the one before.
template <std::size_t Samples>
void SumBytes(std::uint8_t* row, std::size_t count, std::size_t begin)
{
    if (begin >= count)
        return;
    std::uint8_t sums[Samples] = {};
    if (begin >= Samples)
        std::memcpy(sums, row + begin - Samples, Samples);
    for (std::uint8_t* p = row + begin; p != row + count; p += Samples) {
        for (std::size_t i = 0; i < Samples; ++i)
            p[i] = sums[i] = static_cast<std::uint8_t>(sums[i] + p[i]);
    }
}

template <std::size_t Samples>
void SumWords(std::uint8_t* row, std::size_t count, std::size_t begin)
{
    unsigned sums[Samples] = {};
    for (std::size_t i = 0; begin >= Samples && i < Samples; ++i) {
        const std::uint8_t* const left = row + 2 * (begin - Samples + i);
        sums[i] = left[0] + left[1] * 256U;
    }
    for (std::uint8_t* p = row + 2 * begin; p < row + 2 * count; p += 2 * Samples) {
        for (std::size_t i = 0; i < Samples; ++i) {
            sums[i] += p[2 * i] + p[2 * i + 1] * 256U;
            p[2 * i] = static_cast<std::uint8_t>(sums[i]);
            p[2 * i + 1] = static_cast<std::uint8_t>(sums[i] >> 8);
        }
    }
}

#if defined(__SSE2__)

constexpr std::size_t kBlock = sizeof(__m128i);

__m128i Load(const std::uint8_t* p)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}

void Store(std::uint8_t* p, __m128i value)
{
    _mm_storeu_si128(reinterpret_cast<__m128i*>(p), value);
}

/// Sums within 16 bytes take four steps, each of twice the distance of the one before; what the
/// blocks before add up to comes on top, so that only one addition waits for the block before.
std::size_t SumGray8(std::uint8_t* row, std::size_t count)
{
    std::size_t done = 0;
    __m128i before = _mm_setzero_si128();
    for (; count - done >= kBlock; done += kBlock) {
        __m128i sums = Load(row + done);
        sums = _mm_add_epi8(sums, _mm_slli_si128(sums, 1));
        sums = _mm_add_epi8(sums, _mm_slli_si128(sums, 2));
        sums = _mm_add_epi8(sums, _mm_slli_si128(sums, 4));
        sums = _mm_add_epi8(sums, _mm_slli_si128(sums, 8));
        Store(row + done, _mm_add_epi8(sums, before));
        const __m128i last = _mm_shufflehi_epi16(_mm_unpackhi_epi8(sums, sums), 0xff);
        before = _mm_add_epi8(before, _mm_shuffle_epi32(last, 0xff));
    }
    return done;
}

std::size_t SumGray16(std::uint8_t* row, std::size_t count)
{
    std::size_t done = 0;
    __m128i before = _mm_setzero_si128();
    for (; count - done >= kBlock / 2; done += kBlock / 2) {
        __m128i sums = Load(row + 2 * done);
        sums = _mm_add_epi16(sums, _mm_slli_si128(sums, 2));
        sums = _mm_add_epi16(sums, _mm_slli_si128(sums, 4));
        sums = _mm_add_epi16(sums, _mm_slli_si128(sums, 8));
        Store(row + 2 * done, _mm_add_epi16(sums, before));
        const __m128i last = _mm_shufflehi_epi16(sums, 0xff);
        before = _mm_add_epi16(before, _mm_shuffle_epi32(last, 0xff));
    }
    return done;
}

/// Five pixels at a time. A store also writes the first byte of the next five, which have been
/// loaded by then and are written right behind: 40% of the time went where the store came first.
/// (One pixel at a time in the low bytes of a register took nearly twice as long.)
std::size_t SumRgb8(std::uint8_t* row, std::size_t count)
{
    constexpr std::size_t kStep = 15;
    std::size_t done = 0;
    __m128i before = _mm_setzero_si128();
    __m128i next = count >= kBlock ? Load(row) : before;
    for (; count - done >= kStep + kBlock; done += kStep) {
        __m128i sums = next;
        next = Load(row + done + kStep);
        sums = _mm_add_epi8(sums, _mm_slli_si128(sums, 3));
        sums = _mm_add_epi8(sums, _mm_slli_si128(sums, 6));
        sums = _mm_add_epi8(sums, _mm_slli_si128(sums, 12));
        Store(row + done, _mm_add_epi8(sums, before));
        __m128i last = _mm_srli_si128(_mm_slli_si128(sums, 1), 13);
        last = _mm_or_si128(last, _mm_slli_si128(last, 3));
        last = _mm_or_si128(last, _mm_slli_si128(last, 6));
        before = _mm_add_epi8(before, _mm_or_si128(last, _mm_slli_si128(last, 12)));
    }
    if (done != 0)
        Store(row + done, next);
    return done;
}

std::size_t SumRgb16(std::uint8_t* row, std::size_t count)
{
    const std::size_t bytes = 2 * count;
    std::size_t done = 0;
    __m128i sums = _mm_setzero_si128();
    __m128i next = sums;
    if (bytes >= 8)
        next = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(row));
    for (; bytes - done >= 14; done += 6) {
        sums = _mm_add_epi16(sums, next);
        next = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(row + done + 6));
        _mm_storel_epi64(reinterpret_cast<__m128i*>(row + done), sums);
    }
    if (done != 0)
        _mm_storel_epi64(reinterpret_cast<__m128i*>(row + done), next);
    return done / 2;
}

#endif

} // namespace

void UndoDifferencingPlainly(ColorDepth depth, std::uint8_t* row, std::size_t width)
{
    switch (depth) {
    case ColorDepth::Bilevel:
        break;
    case ColorDepth::Gray8:
    case ColorDepth::Palette8:
        SumBytes<1>(row, width, 0);
        break;
    case ColorDepth::Rgb8:
        SumBytes<3>(row, 3 * width, 0);
        break;
    case ColorDepth::Gray16:
        SumWords<1>(row, width, 0);
        break;
    case ColorDepth::Rgb16:
        SumWords<3>(row, 3 * width, 0);
        break;
    }
}

void UndoDifferencing(ColorDepth depth, std::uint8_t* row, std::size_t width)
{
#if defined(__SSE2__)
    switch (depth) {
    case ColorDepth::Bilevel:
        break;
    case ColorDepth::Gray8:
    case ColorDepth::Palette8:
        SumBytes<1>(row, width, SumGray8(row, width));
        break;
    case ColorDepth::Rgb8:
        SumBytes<3>(row, 3 * width, SumRgb8(row, 3 * width));
        break;
    case ColorDepth::Gray16:
        SumWords<1>(row, width, SumGray16(row, width));
        break;
    case ColorDepth::Rgb16:
        SumWords<3>(row, 3 * width, SumRgb16(row, 3 * width));
        break;
    }
#else
    UndoDifferencingPlainly(depth, row, width);
#endif
}

} // namespace vireo
