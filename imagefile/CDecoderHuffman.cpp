#include "imagefile/CDecoderHuffman.h"

#include "imagefile/CcittTables.h"
#include "imagefile/TifBits.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace vireo {

namespace {

/// A row may have so many changes of colour as fit beside it, with those of the row above, into so
/// many bytes; but no more than are of any use. Memory for the positions is touched as they come.
constexpr std::size_t kMostBytes = 100 * 1024 * 1024;
constexpr std::size_t kMostChanges = 8 * 1024 * 1024;
/// Positions behind the last change, all at the row's end.
constexpr std::size_t kSentinels = 4;
/// Plain codes are decoded while at least so many more changes fit: what a window of bits can hold.
constexpr std::size_t kPlainRoom = 64;
/// Rows are drawn in parts of so many words, so that no row needs its own size twice.
constexpr std::size_t kMostTurns = 64 * 1024;

} // namespace

CTIFReader::CDecoderHuffman::CDecoderHuffman(
    std::size_t bytesPerRow, TifStream& stream, std::uint32_t width, std::uint16_t compression)
    : CDecoder(bytesPerRow, stream),
      m_decodeRow(compression == TifCompression::kGroup4 ? &CDecoderHuffman::DecodeTwoDimensional
                                                         : &CDecoderHuffman::DecodeOneDimensional),
      m_iWidth(static_cast<std::int32_t>(width)),
      m_uMostChanges(std::min({std::size_t{width}, kMostChanges,
          (kMostBytes - bytesPerRow) / (2 * sizeof(std::int32_t))}))
{
    for (Changes* changes : {&m_row, &m_reference}) {
        changes->memory = std::make_unique_for_overwrite<std::int32_t[]>(
            1 + m_uMostChanges + kPlainRoom + kSentinels);
        changes->memory[0] = -1;
        changes->positions = changes->memory.get() + 1;
        std::fill_n(changes->positions, kSentinels, m_iWidth);
    }
    m_turns =
        std::make_unique<std::uint64_t[]>(std::min<std::size_t>(width / 64 + 1, kMostTurns) + 1);
}

/// The row in front of a strip is white.
ImageResult CTIFReader::CDecoderHuffman::StartStrip()
{
    m_usedBits = 0;
    m_row.count = 0;
    std::fill_n(m_row.positions, kSentinels, m_iWidth);
    return ImageResult::Ok;
}

ImageResult CTIFReader::CDecoderHuffman::DecodeLine(std::uint8_t* row)
{
    std::swap(m_row, m_reference);
    m_row.count = 0;
    const ImageResult result = (this->*m_decodeRow)();
    std::fill_n(m_row.positions + m_row.count, kSentinels, m_iWidth);
    Draw(row);
    return result;
}

namespace {

constexpr std::uint64_t kWhite = ~std::uint64_t{0};

/// Turns the rest of its word round at each change; positions count from `first` on.
void MarkChanges(
    const std::int32_t* change, const std::int32_t* end, std::size_t first, std::uint64_t* turns)
{
    for (; change != end; ++change) {
        const std::size_t position = static_cast<std::uint32_t>(*change) - first;
        turns[position / 64] ^= kWhite >> position % 64;
    }
}

/// Draws words and clears their turns. `word` is what the next one is like when nothing changes.
void DrawWords(std::uint64_t* turns, std::size_t count, std::uint64_t& word, std::uint8_t* row)
{
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint64_t turn = std::exchange(turns[i], 0);
        StoreBigEndian64(row + i * sizeof(word), word ^ turn);
        word ^= std::uint64_t{0} - (turn & 1);
    }
}

} // namespace

/// Marks each change by turning the rest of its word round; how many changes come before a word
/// then tells whether it is turned as a whole. Nothing here depends on what the row looks like,
/// which no processor guesses well: going along the row from change to change took twice as long.
void CTIFReader::CDecoderHuffman::Draw(std::uint8_t* row)
{
    // Where the last run is black, the row's end is one more change.
    const std::int32_t* const end = m_row.positions + m_row.count + m_row.IsBlack();
    const std::int32_t* change = m_row.positions;
    const std::size_t last = change == end ? 0 : static_cast<std::uint32_t>(end[-1]);
    const std::size_t words = std::min(last / 64 + 1, m_uBytesPerRow / sizeof(std::uint64_t));
    std::uint64_t* const turns = m_turns.get();
    std::uint64_t word = kWhite;
    std::size_t drawn = 0;
    std::size_t part = 0;
    do {
        part = std::min(words - drawn, kMostTurns);
        const std::int32_t* const stop = drawn + part == words
            ? end
            : std::lower_bound(change, end, static_cast<std::int32_t>((drawn + part) * 64));
        MarkChanges(change, stop, drawn * 64, turns);
        DrawWords(turns, part, word, row + drawn * sizeof(word));
        change = stop;
        drawn += part;
    } while (drawn != words);
    // Perhaps the last change lies in what is left of the row, or at its end.
    const std::size_t done = words * sizeof(word);
    std::memset(row + done, 0xff, m_uBytesPerRow - done);
    word ^= std::exchange(turns[part], 0);
    for (std::size_t i = done; i < std::min(done + sizeof(word), m_uBytesPerRow); ++i, word <<= 8)
        row[i] = static_cast<std::uint8_t>(word >> 56);
}

// One code at a time, checked.

/// The next bits, highest first; at least 56 of them unless the input ends.
std::uint64_t CTIFReader::CDecoderHuffman::BitsAhead()
{
    if (m_Stream.Ahead() < sizeof(std::uint64_t))
        m_Stream.Refill();
    return LoadBigEndian64(m_Stream.Next()) << m_usedBits;
}

ImageResult CTIFReader::CDecoderHuffman::TakeBits(unsigned count)
{
    const std::size_t there = 8 * m_Stream.Ahead() - m_usedBits;
    const std::size_t taken = std::min<std::size_t>(count, there);
    m_Stream.Skip((m_usedBits + taken) / 8);
    m_usedBits = static_cast<unsigned>((m_usedBits + taken) % 8);
    return taken == count ? ImageResult::Ok : ImageResult::CantReadTif;
}

void CTIFReader::CDecoderHuffman::AlignToByte()
{
    if (m_usedBits != 0)
        m_Stream.Skip(1);
    m_usedBits = 0;
}

ImageResult CTIFReader::CDecoderHuffman::ReadRun(bool isBlack, std::int32_t& run)
{
    using Kind = CcittMeaning::Kind;
    const auto& table = isBlack ? kBlackRuns : kWhiteRuns;
    for (run = 0;;) {
        const CcittMeaning meaning = table[BitsAhead() >> (64 - kRunTableBits)];
        if (const ImageResult result = TakeBits(meaning.bits); result != ImageResult::Ok)
            return result;
        // A run too long for the row is read to its end all the same.
        run = std::min(run + meaning.value, m_iWidth + 1);
        if (meaning.kind == Kind::Nothing)
            return ImageResult::TifFormatError;
        if (meaning.kind == Kind::Terminating)
            return ImageResult::Ok;
    }
}

/// A change of colour. Two at one place are none, so that the positions ascend.
ImageResult CTIFReader::CDecoderHuffman::EndRun(std::int32_t position)
{
    if (m_row.count != 0 && m_row.positions[m_row.count - 1] == position) {
        --m_row.count;
    } else if (position < m_iWidth) {
        if (m_row.count >= m_uMostChanges)
            return ImageResult::UnsupportedTifFormat;
        m_row.positions[m_row.count++] = position;
    }
    return ImageResult::Ok;
}

/// Behind the position up to which the row is decoded, it is white.
void CTIFReader::CDecoderHuffman::EndFailedRow(std::int32_t position)
{
    if (!m_row.IsBlack() || position >= m_iWidth)
        return;
    if (position > m_row.positions[m_row.count - 1])
        m_row.positions[m_row.count++] = position;
    else
        --m_row.count;
}

ImageResult CTIFReader::CDecoderHuffman::DecodeOneDimensional()
{
    AlignToByte();
    for (std::int32_t position = 0; position < m_iWidth;) {
        DecodePlainRuns(position);
        std::int32_t run = 0;
        ImageResult result = ReadRun(m_row.IsBlack(), run);
        if (result == ImageResult::Ok && run > m_iWidth - position)
            result = ImageResult::TifFormatError;
        if (result == ImageResult::Ok)
            result = EndRun(position + run);
        if (result != ImageResult::Ok) {
            EndFailedRow(0);
            return result;
        }
        position += run;
    }
    return ImageResult::Ok;
}

ImageResult CTIFReader::CDecoderHuffman::DecodeTwoDimensional()
{
    std::int32_t a0 = -1; // The first change may be at 0.
    std::size_t b = 0;
    std::int32_t idle = 0;
    while (a0 < m_iWidth) {
        DecodePlainCodes(a0, b);
        const std::int32_t before = a0;
        ImageResult result = DecodeCode(a0, b);
        // Codes that go nowhere could fill a file of any length.
        if (result == ImageResult::Ok && a0 <= before && ++idle > m_iWidth)
            result = ImageResult::TifFormatError;
        if (result != ImageResult::Ok) {
            EndFailedRow(a0);
            return result;
        }
    }
    return ImageResult::Ok;
}

/// b1: the first change of the row above right of a0 that is to the other colour.
void CTIFReader::CDecoderHuffman::FindB1(std::int32_t a0, std::size_t& b) const
{
    const std::int32_t* const reference = m_reference.positions;
    b = std::min(b, m_reference.count);
    while (b != 0 && reference[b - 1] > a0)
        --b;
    b += (b + m_row.count) % 2;
    while (reference[b] <= a0)
        b += 2;
}

ImageResult CTIFReader::CDecoderHuffman::DecodeCode(std::int32_t& a0, std::size_t& b)
{
    const CcittMeaning meaning = kModes[BitsAhead() >> (64 - kModeTableBits)];
    if (const ImageResult result = TakeBits(meaning.bits); result != ImageResult::Ok)
        return result;
    FindB1(a0, b);
    ImageResult result = ImageResult::TifFormatError;
    if (meaning.kind == CcittMeaning::Kind::Pass) {
        a0 = m_reference.positions[b + 1];
        result = ImageResult::Ok;
    } else if (meaning.kind == CcittMeaning::Kind::Horizontal) {
        result = DecodeHorizontal(a0);
    } else if (meaning.kind == CcittMeaning::Kind::Vertical) {
        result = DecodeVertical(m_reference.positions[b], meaning.value, a0);
    }
    if (result == ImageResult::Ok && a0 < m_iWidth)
        FindB1(a0, b);
    return result;
}

ImageResult CTIFReader::CDecoderHuffman::DecodeHorizontal(std::int32_t& a0)
{
    const bool isBlack = m_row.IsBlack();
    for (const bool runIsBlack : {isBlack, !isBlack}) {
        const std::int32_t start = std::max(a0, 0);
        std::int32_t run = 0;
        ImageResult result = ReadRun(runIsBlack, run);
        if (result == ImageResult::Ok && run > m_iWidth - start)
            result = ImageResult::TifFormatError;
        if (result == ImageResult::Ok)
            result = EndRun(start + run);
        if (result != ImageResult::Ok)
            return result;
        a0 = start + run;
    }
    return ImageResult::Ok;
}

ImageResult CTIFReader::CDecoderHuffman::DecodeVertical(
    std::int32_t b1, int offset, std::int32_t& a0)
{
    const std::int32_t a1 = b1 + offset;
    if (a1 < std::max(a0, 0) || a1 > m_iWidth)
        return ImageResult::TifFormatError;
    const ImageResult result = EndRun(a1);
    if (result == ImageResult::Ok)
        a0 = a1;
    return result;
}

} // namespace vireo
