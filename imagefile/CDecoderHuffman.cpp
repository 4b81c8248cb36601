#include "imagefile/CDecoderHuffman.h"

#include "imagefile/CcittTables.h"
#include "imagefile/TifBits.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace vireo {

namespace {

/// So many changes of colour a row may have; memory for the positions is touched as they come.
constexpr std::size_t kMostChanges = 8 * 1024 * 1024;
/// Positions behind the last change, all at the row's end.
constexpr std::size_t kSentinels = 4;

} // namespace

CTIFReader::CDecoderHuffman::CDecoderHuffman(
    std::size_t bytesPerRow, TifStream& stream, std::uint32_t width, std::uint16_t compression)
    : CDecoder(bytesPerRow, stream),
      m_decodeRow(compression == TifCompression::kGroup4 ? &CDecoderHuffman::DecodeTwoDimensional
                                                         : &CDecoderHuffman::DecodeOneDimensional),
      m_uWidth(width),
      m_uMostChanges(std::min<std::size_t>(width, kMostChanges))
{
    const std::size_t size = m_uMostChanges + kSentinels;
    m_row.positions = std::make_unique_for_overwrite<std::uint32_t[]>(size);
    m_reference.positions = std::make_unique_for_overwrite<std::uint32_t[]>(size);
}

ImageResult CTIFReader::CDecoderHuffman::StartStrip()
{
    m_usedBits = 0;
    m_row.count = 0;
    return ImageResult::Ok;
}

ImageResult CTIFReader::CDecoderHuffman::DecodeLine(std::uint8_t* row)
{
    std::swap(m_row, m_reference);
    std::fill_n(m_reference.positions.get() + m_reference.count, kSentinels, m_uWidth);
    m_row.count = 0;
    const ImageResult result = (this->*m_decodeRow)();
    Draw(row);
    return result;
}

void CTIFReader::CDecoderHuffman::Draw(std::uint8_t* row) const
{
    std::memset(row, 0xff, m_uBytesPerRow);
    for (std::size_t i = 0; i < m_row.count; i += 2) {
        const std::uint32_t end = i + 1 < m_row.count ? m_row.positions[i + 1] : m_uWidth;
        for (std::uint32_t x = m_row.positions[i]; x < end; ++x)
            row[x / 8] = static_cast<std::uint8_t>(row[x / 8] & ~(0x80 >> x % 8));
    }
}

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

void CTIFReader::CDecoderHuffman::ByteAlign()
{
    if (m_usedBits != 0)
        m_Stream.Skip(1);
    m_usedBits = 0;
}

ImageResult CTIFReader::CDecoderHuffman::ReadRun(bool isBlack, std::uint32_t& run)
{
    using Kind = CcittMeaning::Kind;
    const auto& table = isBlack ? kBlackRuns : kWhiteRuns;
    for (run = 0;;) {
        const CcittMeaning meaning = table[BitsAhead() >> (64 - kRunTableBits)];
        if (const ImageResult result = TakeBits(meaning.bits); result != ImageResult::Ok)
            return result;
        run += static_cast<std::uint32_t>(meaning.value);
        if (meaning.kind == Kind::Nothing || run > m_uWidth)
            return ImageResult::TifFormatError;
        if (meaning.kind == Kind::Terminating)
            return ImageResult::Ok;
    }
}

/// A change of colour. Two at one place are none.
ImageResult CTIFReader::CDecoderHuffman::EndRun(std::uint32_t position)
{
    if (m_row.count != 0 && m_row.positions[m_row.count - 1] == position) {
        --m_row.count;
    } else if (position < m_uWidth) {
        if (m_row.count == m_uMostChanges)
            return ImageResult::UnsupportedTifFormat;
        m_row.positions[m_row.count++] = position;
    }
    return ImageResult::Ok;
}

/// What is behind the last complete run stays white.
void CTIFReader::CDecoderHuffman::EndFailedRow(std::uint32_t position)
{
    if (m_row.count % 2 == 0)
        return;
    if (position > m_row.positions[m_row.count - 1] && position < m_uWidth)
        m_row.positions[m_row.count++] = position;
    else if (position < m_uWidth)
        --m_row.count;
}

ImageResult CTIFReader::CDecoderHuffman::DecodeOneDimensional()
{
    ByteAlign();
    std::uint32_t position = 0;
    for (bool isBlack = false; position < m_uWidth; isBlack = !isBlack) {
        std::uint32_t run = 0;
        ImageResult result = ReadRun(isBlack, run);
        if (result == ImageResult::Ok && run > m_uWidth - position)
            result = ImageResult::TifFormatError;
        if (result == ImageResult::Ok)
            result = EndRun(position + run);
        if (result != ImageResult::Ok) {
            EndFailedRow(position);
            return result;
        }
        position += run;
    }
    return ImageResult::Ok;
}

ImageResult CTIFReader::CDecoderHuffman::DecodeTwoDimensional()
{
    using Kind = CcittMeaning::Kind;
    std::int64_t a0 = -1;
    std::size_t b = 0;
    bool isBlack = false;
    std::uint32_t idle = 0;
    ImageResult result = ImageResult::Ok;
    const std::uint32_t* const reference = m_reference.positions.get();
    while (a0 < m_uWidth && result == ImageResult::Ok) {
        const CcittMeaning meaning = kModes[BitsAhead() >> (64 - kModeTableBits)];
        result = TakeBits(meaning.bits);
        if (result != ImageResult::Ok)
            break;
        while (b >= 1 && reference[b - 1] > a0)
            --b;
        if (b % 2 != static_cast<std::size_t>(isBlack))
            ++b;
        while (reference[b] <= a0 && reference[b] < m_uWidth)
            b += 2;
        const std::int64_t before = a0;
        const std::uint32_t b1 = reference[b];
        switch (meaning.kind) {
        case Kind::Pass:
            a0 = reference[b + (b1 < m_uWidth)];
            break;
        case Kind::Horizontal:
            for (int i = 0; i < 2 && result == ImageResult::Ok; ++i) {
                const std::uint32_t start =
                    static_cast<std::uint32_t>(std::max<std::int64_t>(a0, 0));
                std::uint32_t run = 0;
                result = ReadRun(isBlack, run);
                if (result == ImageResult::Ok && run > m_uWidth - start)
                    result = ImageResult::TifFormatError;
                if (result == ImageResult::Ok)
                    result = EndRun(start + run);
                if (result == ImageResult::Ok) {
                    a0 = start + run;
                    isBlack = !isBlack;
                }
            }
            break;
        case Kind::Vertical: {
            const std::int64_t a1 = std::int64_t{b1} + meaning.value;
            if (a1 < std::max<std::int64_t>(a0, 0) || a1 > m_uWidth) {
                result = ImageResult::TifFormatError;
            } else {
                result = EndRun(static_cast<std::uint32_t>(a1));
                a0 = a1;
                isBlack = !isBlack;
            }
            break;
        }
        default:
            result = ImageResult::TifFormatError;
        }
        if (a0 <= before && ++idle > m_uWidth)
            result = ImageResult::TifFormatError;
    }
    if (result != ImageResult::Ok)
        EndFailedRow(static_cast<std::uint32_t>(std::max<std::int64_t>(a0, 0)));
    return result;
}

} // namespace vireo
