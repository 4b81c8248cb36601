#include "imagefile/CPackbitCoder.h"

#include "imagefile/EqualPairs.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace vireo {

namespace {

constexpr std::size_t kLongestChunk = 128;
constexpr std::size_t kWordBits = 64;

/// The 64 bits from bit `first` on.
std::uint64_t BitsFrom(const std::uint64_t* words, std::size_t first)
{
    const std::uint64_t* const word = words + first / kWordBits;
    const std::size_t shift = first % kWordBits;
    return word[0] >> shift | word[1] << 1 << (kWordBits - 1 - shift);
}

/// How many bits from bit `first` on differ from `value`, at most kLongestChunk.
template <bool value>
std::size_t BitsUntil(const std::uint64_t* words, std::size_t first)
{
    constexpr std::uint64_t kFlip = value ? 0 : ~std::uint64_t{0};
    const std::uint64_t near = BitsFrom(words, first) ^ kFlip;
    if (near != 0)
        return static_cast<std::size_t>(std::countr_zero(near));
    const std::uint64_t far = BitsFrom(words, first + kWordBits) ^ kFlip;
    return kWordBits + static_cast<std::size_t>(std::countr_zero(far));
}

/// Writes a literal; copies in blocks, so reads and writes go beyond its end.
std::uint8_t* PutLiteral(std::uint8_t* out, const std::uint8_t* bytes, std::size_t count)
{
    constexpr std::size_t kBlock = 32;
    *out++ = static_cast<std::uint8_t>(count - 1);
    for (std::size_t i = 0; i < count; i += kBlock)
        std::memcpy(out + i, bytes + i, kBlock);
    return out + count;
}

std::uint8_t* PutRepeat(std::uint8_t* out, std::uint8_t byte, std::size_t count)
{
    out[0] = static_cast<std::uint8_t>(1 - static_cast<int>(count));
    out[1] = byte;
    return out + 2;
}

} // namespace

ImageResult CPackbitCoder::BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t,
    std::uint32_t, std::uint32_t, std::uint32_t)
{
    if (depth > ColorDepth::Palette8)
        return ImageResult::InvalidTiffArguments;
    // A search looks at 128 bits and the word they end in.
    const std::uint64_t words = BytesPerRow(depth, width) / kWordBits + 4;
    if (!AllocateZeroed(m_pairs, words) || !AllocateZeroed(m_strongPairs, words))
        return ImageResult::TifOutOfMemory;
    return BeginRows(depth, width);
}

void CPackbitCoder::MarkRow()
{
    const std::size_t count = RowBytes();
    MarkEqualPairs(Row(), count, m_pairs.data());
    const std::size_t words = (count + kWordBits - 1) / kWordBits;
    for (std::size_t i = 0; i < words; ++i) {
        const std::uint64_t here = m_pairs[i];
        const std::uint64_t next = m_pairs[i + 1];
        // A third equal byte, which makes the next byte a pair too; or a pair behind the pair.
        const std::uint64_t third = here >> 1 | next << 63;
        const std::uint64_t behind = here >> 2 | next << 62;
        m_strongPairs[i] = here & (third | behind);
    }
    for (std::size_t i = count - std::min<std::size_t>(count, 3); i < count; ++i)
        m_strongPairs[i / kWordBits] |= m_pairs[i / kWordBits] & std::uint64_t{1} << i % kWordBits;
}

ImageResult CPackbitCoder::LineDone()
{
    MarkRow();
    const std::size_t end = RowBytes();
    const std::uint8_t* const row = Row();
    const std::uint64_t* const pairs = m_pairs.data();
    const std::uint64_t* const strongPairs = m_strongPairs.data();
    // What ends the literal that may begin here.
    const std::uint64_t* enders = (pairs[0] & 1) != 0 ? pairs : strongPairs;
    std::size_t place = 0;
    while (place < end) {
        std::uint8_t* out = Output().Reserve(1 + kLongestChunk);
        const std::size_t literal =
            std::min({BitsUntil<true>(enders, place), kLongestChunk, end - place});
        if (literal > 0) {
            out = PutLiteral(out, row + place, literal);
            // Either the pair that ended it is next, or a literal behind a full one.
            enders = literal < kLongestChunk ? pairs : strongPairs;
        } else {
            const std::size_t equal = BitsUntil<false>(pairs, place) + 1;
            const std::size_t count = std::min(equal, kLongestChunk);
            out = PutRepeat(out, row[place], count);
            enders = pairs;
            place += count;
        }
        place += literal;
        Output().AdvanceTo(out);
    }
    return Output().Result();
}

ImageResult CPackbitCoder::EndImage(std::uint32_t status)
{
    m_pairs = {};
    m_strongPairs = {};
    return CTIFCoder::EndImage(status);
}

} // namespace vireo
