#include "imagefile/CDecoder.h"
#include "imagefile/TifBits.h"

#include <algorithm>
#include <cstring>

namespace vireo {

namespace {

constexpr int kNothing = 128;              ///< The control byte that means nothing.
constexpr std::ptrdiff_t kLongest = 128;   ///< Bytes of the longest literal or run.
constexpr std::size_t kLongestChunk = 129; ///< A control byte and 128 bytes.
/// Short chunks are copied by so many bytes, and over their end by fewer.
constexpr std::ptrdiff_t kLiteralBlock = 64, kRunBlock = 16;
/// Where a row may fail soon, it is put together in pieces of so many bytes at least, in the
/// decoder's own memory: there copies over the end of a chunk spoil nothing.
constexpr std::ptrdiff_t kPiece = 4096;

struct Cursor {
    const std::uint8_t* next;
    const std::uint8_t* end;
    std::uint8_t* out;
    const std::uint8_t* pieceEnd;
    const std::uint8_t* rowEnd; ///< Where `out` would be at the end of the row.
};

/// Copies bytes, with all their bits turned over where those of the picture are. Piece by piece:
/// all loads before all stores took a tenth longer.
template <std::ptrdiff_t kCount, std::uint8_t kFlip>
void CopyBlock(std::uint8_t* to, const std::uint8_t* from)
{
    constexpr std::uint64_t kFlipWord = 0x0101010101010101U * kFlip;
    for (std::ptrdiff_t i = 0; i < kCount; i += 16) {
        std::uint64_t words[2];
        std::memcpy(words, from + i, sizeof(words));
        words[0] ^= kFlipWord;
        words[1] ^= kFlipWord;
        std::memcpy(to + i, words, sizeof(words));
    }
}

void CopyFlipped(std::uint8_t* to, const std::uint8_t* from, std::size_t count, std::uint8_t flip)
{
    std::transform(from, from + count, to,
        [flip](std::uint8_t byte) { return static_cast<std::uint8_t>(byte ^ flip); });
}

/// Decodes chunks as long as neither the input nor the row can end in them: a block for a short
/// chunk, what the longest takes for others. (Finer steps cost more in mispredicted branches than
/// they save. One way for literals and runs, without a branch between them, took half as long
/// again: every chunk then waits for the length of the one before.)
template <std::uint8_t kFlip>
void DecodeFast(Cursor& cursor)
{
    // Not used through the cursor: as far as a compiler knows, storing a byte may change it.
    const std::uint8_t* next = cursor.next;
    const std::uint8_t* const end = cursor.end;
    std::uint8_t* out = cursor.out;
    const std::uint8_t* const pieceEnd = cursor.pieceEnd;
    const std::uint8_t* const rowEnd = cursor.rowEnd;
    while (end - next >= kLongest + 1 + kLiteralBlock && out < pieceEnd) {
        const std::ptrdiff_t control = *next;
        if (control < kNothing) {
            const std::ptrdiff_t count = control + 1;
            if (rowEnd - out < count)
                break;
            CopyBlock<kLiteralBlock, kFlip>(out, next + 1);
            if (count > kLiteralBlock)
                CopyBlock<kLongest - kLiteralBlock, kFlip>(
                    out + kLiteralBlock, next + 1 + kLiteralBlock);
            next += 1 + count;
            out += count;
        } else {
            const std::ptrdiff_t count = 2 * kNothing + 1 - control;
            if (rowEnd - out < count || control == kNothing)
                break;
            const int value = next[1] ^ kFlip;
            std::memset(out, value, kRunBlock);
            if (count > kRunBlock)
                std::memset(out + kRunBlock, value, kLongest - kRunBlock);
            next += 2;
            out += count;
        }
    }
    cursor.next = next;
    cursor.out = out;
}

/// Decodes one chunk that may be cut off or too long; the longest is at hand unless the input ends.
ImageResult DecodeChunk(Cursor& cursor, std::uint8_t flip)
{
    if (cursor.next == cursor.end)
        return ImageResult::CantReadTif;
    const std::size_t control = *cursor.next++;
    if (control == kNothing)
        return ImageResult::Ok;
    const bool isRun = control > kNothing;
    const std::size_t count = isRun ? 2 * kNothing + 1 - control : control + 1;
    const bool fits = count <= static_cast<std::size_t>(cursor.rowEnd - cursor.out);
    // The byte of a run is used up even when the run is too long; of a literal nothing is.
    if (!isRun && !fits)
        return ImageResult::TifFormatError;
    const std::uint8_t* const bytes = cursor.next;
    const std::size_t taken = isRun ? 1 : count;
    if (taken > static_cast<std::size_t>(cursor.end - bytes))
        return ImageResult::CantReadTif;
    cursor.next += taken;
    if (!fits)
        return ImageResult::TifFormatError;
    if (isRun)
        std::memset(cursor.out, *bytes ^ flip, count);
    else
        CopyFlipped(cursor.out, bytes, count, flip);
    cursor.out += count;
    return ImageResult::Ok;
}

void DecodeFast(Cursor& cursor, std::uint8_t flip)
{
    flip == 0 ? DecodeFast<0>(cursor) : DecodeFast<0xff>(cursor);
}

} // namespace

CTIFReader::CDecoderPackbit::CDecoderPackbit(
    std::size_t bytesPerRow, TifStream& stream, bool flipsBits)
    : CDecoder(bytesPerRow, stream),
      m_flipsBits(flipsBits),
      m_piece(std::make_unique_for_overwrite<std::uint8_t[]>(kPiece + 2 * kLongest))
{
}

ImageResult CTIFReader::CDecoderPackbit::DecodeLine(std::uint8_t* row)
{
    std::size_t left = m_uBytesPerRow;
    ImageResult result = ImageResult::Ok;
    while (left != 0 && result == ImageResult::Ok) {
        std::size_t count = DecodeDirectly({row, left});
        if (count == 0) {
            count = DecodePiece(left, result);
            CopyInPieces(row, m_piece.get(), count);
        }
        row += count;
        left -= count;
    }
    // Also what the row held before: the bits of whole rows are turned over, wherever they end.
    if (result != ImageResult::Ok)
        CopyFlipped(row, row, left, Flip());
    return result;
}

/// Decodes some of what a row still wants straight into it, and returns how many bytes. It ends so
/// early that what was copied over the end of a chunk is overwritten before the row can fail: a
/// chunk that is too long begins within the row's last bytes, and there is more input at hand.
std::size_t CTIFReader::CDecoderPackbit::DecodeDirectly(std::span<std::uint8_t> row)
{
    constexpr std::size_t kRowMargin = 4 * kLongest;
    constexpr std::size_t kInputMargin = 1024;
    if (row.size() <= kRowMargin || m_Stream.Ahead() <= kInputMargin)
        return 0;
    const std::uint8_t* const next = m_Stream.Next();
    std::uint8_t* const rowEnd = row.data() + row.size();
    Cursor cursor{
        next, next + m_Stream.Ahead() - kInputMargin, row.data(), rowEnd - kRowMargin, rowEnd};
    DecodeFast(cursor, Flip());
    m_Stream.Skip(static_cast<std::size_t>(cursor.next - next));
    return static_cast<std::size_t>(cursor.out - row.data());
}

/// Decodes some of the `left` bytes that a row still wants. Returns how many.
std::size_t CTIFReader::CDecoderPackbit::DecodePiece(std::size_t left, ImageResult& result)
{
    const auto room = static_cast<std::ptrdiff_t>(std::min<std::size_t>(left, kPiece + kLongest));
    std::uint8_t* const piece = m_piece.get();
    Cursor cursor{nullptr, nullptr, piece, piece + std::min(room, kPiece), piece + room};
    while (cursor.out < cursor.pieceEnd && result == ImageResult::Ok) {
        if (m_Stream.Ahead() < kLongestChunk)
            m_Stream.Refill();
        cursor.next = m_Stream.Next();
        cursor.end = m_Stream.Next() + m_Stream.Ahead();
        result = DecodeChunk(cursor, Flip());
        if (result == ImageResult::Ok)
            DecodeFast(cursor, Flip());
        m_Stream.Skip(static_cast<std::size_t>(cursor.next - m_Stream.Next()));
    }
    return static_cast<std::size_t>(cursor.out - piece);
}

} // namespace vireo
