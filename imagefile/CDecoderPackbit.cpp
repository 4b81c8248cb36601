#include "imagefile/CDecoder.h"

#include <cstring>

namespace vireo {

namespace {

constexpr unsigned kNothing = 128;         ///< The control byte that means nothing.
constexpr std::size_t kLongestChunk = 129; ///< A control byte and 128 bytes.
/// Fills and copies go by so many bytes, and over their end by fewer.
constexpr std::ptrdiff_t kBlock = 32;

struct Cursor {
    const std::uint8_t* next;
    const std::uint8_t* end;
    std::uint8_t* row;
    std::uint8_t* rowEnd;
};

/// Decodes chunks as long as neither the input nor the row can end in what is read and written: a
/// block for a short chunk, what the longest takes for others. (Finer steps cost more in
/// mispredicted branches than they save.)
void DecodeFast(Cursor& cursor)
{
    constexpr std::ptrdiff_t kLongest = 128;
    const std::uint8_t* next = cursor.next;
    std::uint8_t* row = cursor.row;
    while (cursor.end - next >= kLongest + 1 + kBlock) {
        const unsigned control = *next;
        if (control < kNothing) {
            const std::ptrdiff_t count = control + 1;
            if (cursor.rowEnd - row < (count <= kBlock ? kBlock : kLongest))
                break;
            std::memcpy(row, next + 1, kBlock);
            if (count > kBlock)
                std::memcpy(row + kBlock, next + 1 + kBlock, kLongest - kBlock);
            next += 1 + count;
            row += count;
        } else if (control > kNothing) {
            const std::ptrdiff_t count = 257 - static_cast<std::ptrdiff_t>(control);
            if (cursor.rowEnd - row < (count <= 16 ? 16 : kLongest))
                break;
            std::memset(row, next[1], 16);
            if (count > 16)
                std::memset(row + 16, next[1], kLongest - 16);
            next += 2;
            row += count;
        } else {
            ++next;
        }
    }
    cursor.next = next;
    cursor.row = row;
}

/// Decodes one chunk that may be cut off or too long; the longest is at hand unless the input ends.
ImageResult DecodeChunk(Cursor& cursor)
{
    if (cursor.next == cursor.end)
        return ImageResult::CantReadTif;
    const unsigned control = *cursor.next++;
    if (control == kNothing)
        return ImageResult::Ok;
    const bool isRun = control > kNothing;
    const std::size_t count = isRun ? 257 - control : control + 1;
    if (count > static_cast<std::size_t>(cursor.rowEnd - cursor.row))
        return ImageResult::TifFormatError;
    const std::size_t taken = isRun ? 1 : count;
    if (taken > static_cast<std::size_t>(cursor.end - cursor.next))
        return ImageResult::CantReadTif;
    if (isRun)
        std::memset(cursor.row, *cursor.next, count);
    else
        std::memcpy(cursor.row, cursor.next, count);
    cursor.next += taken;
    cursor.row += count;
    return ImageResult::Ok;
}

} // namespace

ImageResult CTIFReader::CDecoderPackbit::DecodeLine(std::uint8_t* row)
{
    std::uint8_t* const rowEnd = row + m_uBytesPerRow;
    ImageResult result = ImageResult::Ok;
    while (row != rowEnd && result == ImageResult::Ok) {
        if (m_Stream.Ahead() < kLongestChunk)
            m_Stream.Refill();
        Cursor cursor{m_Stream.Next(), m_Stream.Next() + m_Stream.Ahead(), row, rowEnd};
        result = DecodeChunk(cursor);
        if (result == ImageResult::Ok)
            DecodeFast(cursor);
        m_Stream.Skip(static_cast<std::size_t>(cursor.next - m_Stream.Next()));
        row = cursor.row;
    }
    return result;
}

} // namespace vireo
