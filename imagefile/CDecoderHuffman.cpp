#include "imagefile/CDecoderHuffman.h"

#include "imagefile/CcittTables.h"
#include "imagefile/TifBits.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace vireo {

namespace {

/// So many changes of colour a row may have; memory for the positions is touched as they come.
constexpr std::size_t kMostChanges = 8 * 1024 * 1024;
/// Positions behind the last change, all at the row's end.
constexpr std::size_t kSentinels = 4;
/// Plain codes are decoded while at least so many more changes fit: what a window of bits can hold.
constexpr std::size_t kPlainRoom = 64;
/// So many bytes of input must be at hand then: four refills, of which each uses up to 7.
constexpr std::size_t kPlainBytes = 48;
/// The most V0 codes, one bit each, that are taken from a window at a time.
constexpr int kMostRepeats = 32;

/// Adds a run of at most one make-up code to a position.
bool AddPlainRun(BitWindow& window, bool isBlack, std::int32_t& position)
{
    using Kind = CcittMeaning::Kind;
    const auto& table = isBlack ? kBlackRuns : kWhiteRuns;
    window.Refill();
    CcittMeaning meaning = table[window.bits >> (64 - kRunTableBits)];
    if (meaning.kind == Kind::MakeUp) {
        position += meaning.value;
        window.Drop(meaning.bits);
        meaning = table[window.bits >> (64 - kRunTableBits)];
    }
    position += meaning.value;
    window.Drop(meaning.bits);
    return meaning.kind == Kind::Terminating;
}

} // namespace

CTIFReader::CDecoderHuffman::CDecoderHuffman(
    std::size_t bytesPerRow, TifStream& stream, std::uint32_t width, std::uint16_t compression)
    : CDecoder(bytesPerRow, stream),
      m_decodeRow(compression == TifCompression::kGroup4 ? &CDecoderHuffman::DecodeTwoDimensional
                                                         : &CDecoderHuffman::DecodeOneDimensional),
      m_iWidth(static_cast<std::int32_t>(width)),
      m_uMostChanges(std::min<std::size_t>(width, kMostChanges))
{
    for (Changes* changes : {&m_row, &m_reference}) {
        changes->memory = std::make_unique_for_overwrite<std::int32_t[]>(
            1 + m_uMostChanges + kPlainRoom + kSentinels);
        changes->memory[0] = 0;
        changes->positions = changes->memory.get() + 1;
        std::fill_n(changes->positions, kSentinels, m_iWidth);
    }
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

/// Flips the rest of the word that is going on at each change of colour.
void CTIFReader::CDecoderHuffman::Draw(std::uint8_t* row) const
{
    constexpr std::uint64_t kWhite = ~std::uint64_t{0};
    std::uint8_t* const end = row + m_uBytesPerRow;
    std::uint64_t word = kWhite;
    std::int32_t first = 0; // Of the word, in pixels.
    // Where the last run is black, the row's end is one more change.
    const std::size_t count = m_row.count + m_row.IsBlack();
    for (std::size_t i = 0; i < count; ++i) {
        const std::int32_t position = m_row.positions[i];
        while (position - first >= 64) {
            StoreBigEndian64(row, word);
            row += sizeof(word);
            first += 64;
            word = std::uint64_t{0} - (word & 1);
        }
        word ^= kWhite >> (position - first);
    }
    for (; row != end; ++row) {
        *row = static_cast<std::uint8_t>(word >> 56);
        word = word << 8 | 0xff;
    }
}

// Plain codes, several at a time.

BitWindow CTIFReader::CDecoderHuffman::OpenWindow() const
{
    BitWindow window{m_Stream.Next()};
    window.Refill();
    window.Drop(m_usedBits);
    return window;
}

void CTIFReader::CDecoderHuffman::CloseWindow(const BitWindow& window)
{
    const auto bytes = static_cast<std::size_t>(window.next - m_Stream.Next());
    const std::size_t bits = 8 * bytes - window.have;
    m_Stream.Skip(bits / 8);
    m_usedBits = bits % 8;
}

void CTIFReader::CDecoderHuffman::DecodePlainRuns(std::int32_t& position)
{
    constexpr int kStepsAWindow = 4;
    if (m_Stream.Ahead() < kPlainBytes)
        return;
    const std::uint8_t* const last = m_Stream.Next() + (m_Stream.Ahead() - kPlainBytes);
    BitWindow window = OpenWindow();
    std::int32_t* const positions = m_row.positions;
    std::size_t count = m_row.count;
    const std::int32_t width = m_iWidth;
    for (bool isPlain = true; isPlain && window.next <= last && count < m_uMostChanges;) {
        window.Refill();
        for (int i = 0; i < kStepsAWindow; ++i) {
            const CcittStep step = kSteps[count % 2][window.bits >> (64 - kStepBits)];
            const std::int32_t firstEnd = position + step.first;
            const std::int32_t secondEnd = firstEnd + step.second;
            isPlain = step.bits != 0 && secondEnd < width;
            if (!isPlain)
                break;
            positions[count] = firstEnd;
            positions[count + 1] = secondEnd;
            count += step.ended;
            position = secondEnd;
            window.Drop(step.bits);
        }
    }
    m_row.count = count;
    CloseWindow(window);
}

void CTIFReader::CDecoderHuffman::DecodePlainCodes(std::int32_t& a0, std::size_t& b)
{
    using Kind = CcittMeaning::Kind;
    if (m_Stream.Ahead() < kPlainBytes)
        return;
    const std::uint8_t* const last = m_Stream.Next() + (m_Stream.Ahead() - kPlainBytes);
    BitWindow window = OpenWindow();
    const std::int32_t* const reference = m_reference.positions;
    for (bool isPlain = true; isPlain && window.next <= last && m_row.count < m_uMostChanges;) {
        window.Refill();
        // Ones are V0 codes: so many changes are those of the row above.
        const int repeats = std::min(std::countl_one(window.bits), kMostRepeats);
        if (repeats != 0) {
            const std::size_t left = m_reference.count - std::min(b, m_reference.count);
            const std::size_t count =
                std::min<std::size_t>(static_cast<std::size_t>(repeats), left);
            for (std::size_t i = 0; i < count; i += 4)
                std::memcpy(m_row.positions + m_row.count + i, reference + b + i, 16);
            m_row.count += count;
            b += count;
            window.Drop(static_cast<unsigned>(count));
            if (count != 0)
                a0 = reference[b - 1];
            if (count < static_cast<std::size_t>(repeats))
                break;
        }
        const CcittMeaning meaning = kModes[window.bits >> (64 - kModeTableBits)];
        BitWindow behind = window;
        behind.Drop(meaning.bits);
        if (meaning.kind == Kind::Vertical)
            isPlain = TakeVertical(meaning.value, a0, b);
        else if (meaning.kind == Kind::Horizontal)
            isPlain = TakeHorizontal(behind, a0, b);
        else if (meaning.kind == Kind::Pass)
            isPlain = TakePass(a0, b);
        else
            isPlain = false;
        if (isPlain)
            window = behind;
    }
    CloseWindow(window);
}

/// Each Take function does nothing and returns false when the code is not plain.
bool CTIFReader::CDecoderHuffman::TakeVertical(int offset, std::int32_t& a0, std::size_t& b)
{
    const std::int32_t* const reference = m_reference.positions;
    const std::int32_t a1 = reference[b] + offset;
    if (a1 <= a0 || a1 >= m_iWidth || offset == kMostVertical)
        return false;
    m_row.positions[m_row.count++] = a1;
    a0 = a1;
    ++b;
    // Left of b1 the change before can be the next one, right of b1 the next one can be passed.
    if (offset < 0)
        b -= b >= 2 && reference[b - 2] > a0 ? 2 : 0;
    else
        b += reference[b] <= a0 ? 2 : 0;
    return true;
}

bool CTIFReader::CDecoderHuffman::TakePass(std::int32_t& a0, std::size_t& b)
{
    const std::int32_t b2 = m_reference.positions[b + 1];
    if (b2 >= m_iWidth)
        return false;
    a0 = b2;
    b += 2;
    return true;
}

bool CTIFReader::CDecoderHuffman::TakeHorizontal(
    BitWindow& window, std::int32_t& a0, std::size_t& b)
{
    const bool isBlack = m_row.IsBlack();
    window.Refill();
    const CcittStep step = kSteps[isBlack][window.bits >> (64 - kStepBits)];
    window.Drop(step.bits);
    std::int32_t a1 = std::max(a0, 0) + step.first;
    std::int32_t a2 = a1 + step.second;
    if (step.ended != 2) {
        if (step.ended == 0 && !AddPlainRun(window, isBlack, a1))
            return false;
        a2 = a1;
        if (!AddPlainRun(window, !isBlack, a2))
            return false;
    }
    const std::int32_t before = m_row.positions[static_cast<std::ptrdiff_t>(m_row.count) - 1];
    if (a1 >= a2 || a2 >= m_iWidth || (m_row.count != 0 && a1 <= before))
        return false;
    m_row.positions[m_row.count] = a1;
    m_row.positions[m_row.count + 1] = a2;
    m_row.count += 2;
    a0 = a2;
    while (m_reference.positions[b] <= a0)
        b += 2;
    return true;
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
