#include "imagefile/CDecoderLZW.h"

#include "imagefile/TifBits.h"

#include <algorithm>
#include <cstring>

namespace vireo {

namespace {

constexpr unsigned kClear = 256;
constexpr unsigned kEnd = 257;
constexpr std::uint32_t kFirstFree = 258;
constexpr unsigned kFirstWidth = 9;
constexpr unsigned kLastWidth = 12;
constexpr std::size_t kHeadBytes = 8;

/// From one clear code to the next, 3,838 strings at most are put out behind the first byte, each
/// one byte longer than the longest before it.
constexpr std::size_t kMostBetweenClears = std::size_t{3839} * 3840 / 2;
/// Output from before a clear code is dropped when it is more than this.
constexpr std::size_t kRewindBytes = 64 * 1024;
/// How far ahead of a row is decoded at least: short rows then cost little each.
constexpr std::size_t kAheadBytes = 4096;
constexpr std::size_t kMostAheadBytes = 64 * 1024;
/// Copies go over their end by less than this.
constexpr std::size_t kCopySlack = 64;
constexpr std::size_t kOutputBytes =
    kRewindBytes + kMostAheadBytes + 2 * kMostBetweenClears + kCopySlack;

} // namespace

CTIFReader::CDecoderLZW::CDecoderLZW(std::size_t bytesPerRow, TifStream& stream)
    : CDecoder(bytesPerRow, stream),
      m_output(std::make_unique_for_overwrite<std::uint8_t[]>(kOutputBytes)),
      m_strings(std::make_unique_for_overwrite<String[]>(kCodes))
{
    for (std::uint32_t code = 0; code < kClear; ++code)
        m_strings[code] = {code, 0, 1};
    // A length of 0 tells the two codes that are no strings.
    m_strings[kClear] = m_strings[kEnd] = {0, 0, 0};
}

ImageResult CTIFReader::CDecoderLZW::StartStrip()
{
    m_produced = m_delivered = 0;
    m_usedBits = 0;
    m_state = State::Decoding;
    Clear();
    return ImageResult::Ok;
}

void CTIFReader::CDecoderLZW::Clear()
{
    m_width = kFirstWidth;
    m_next = kFirstFree;
    m_growAt = (1U << kFirstWidth) - 1;
    m_hasPrevious = false;
}

ImageResult CTIFReader::CDecoderLZW::DecodeLine(std::uint8_t* row)
{
    for (std::size_t left = m_uBytesPerRow;;) {
        const std::size_t count = std::min(left, m_produced - m_delivered);
        std::memcpy(row, m_output.get() + m_delivered, count);
        m_delivered += count;
        row += count;
        left -= count;
        if (left == 0 || m_state == State::Ended)
            return ImageResult::Ok;
        if (m_state == State::Failed)
            return ImageResult::TifFormatError;
        DecodeSome(std::clamp(left, kAheadBytes, kMostAheadBytes));
    }
}

/// Decodes until at least `wanted` bytes are there or the strip is at its end. Everything decoded
/// before has been delivered.
void CTIFReader::CDecoderLZW::DecodeSome(std::size_t wanted)
{
    std::size_t target = m_produced + wanted;
    while (m_state == State::Decoding && m_produced < target) {
        if (m_Stream.Ahead() < 16)
            m_Stream.Refill();
        const std::size_t codes = (8 * m_Stream.Ahead() - m_usedBits) / m_width;
        if (codes == 0 || m_Stream.Ahead() == 0) {
            m_state = State::Ended;
            return;
        }
        DecodeRun(codes, target);
        if (!m_hasPrevious && m_produced > kRewindBytes) {
            target -= m_delivered;
            Rewind();
        }
    }
}

void CTIFReader::CDecoderLZW::Rewind()
{
    m_produced -= m_delivered;
    std::memmove(m_output.get(), m_output.get() + m_delivered, m_produced);
    m_delivered = 0;
}

/// Decodes up to `codes` codes, which the stream has at hand: until the width changes, the table is
/// cleared, the target is reached or something ends the strip.
void CTIFReader::CDecoderLZW::DecodeRun(std::size_t codes, std::size_t target)
{
    const std::uint8_t* const input = m_Stream.Next();
    std::size_t bit = m_usedBits;
    std::uint8_t* const output = m_output.get();
    for (; codes != 0 && m_produced < target; --codes) {
        const unsigned code =
            static_cast<unsigned>((LoadBigEndian64(input + bit / 8) << bit % 8) >> (64 - m_width));
        bit += m_width;
        if (code == kClear) {
            Clear();
            break;
        }
        if (code == kEnd) {
            m_state = State::Ended;
            break;
        }
        if (m_hasPrevious ? code > m_next || m_next == kCodes : code >= kFirstFree) {
            m_state = State::Failed;
            break;
        }
        const bool isNew = m_hasPrevious && code == m_next;
        const std::uint8_t first =
            static_cast<std::uint8_t>(isNew ? m_previous.head : m_strings[code].head);
        if (m_hasPrevious) {
            m_strings[m_next] = {m_previous.head, m_previous.start, m_previous.length + 1};
            if (m_previous.length < kHeadBytes)
                m_strings[m_next].head |= std::uint64_t{first} << (8 * m_previous.length);
            ++m_next;
        }
        String string = m_strings[code];
        if (code < kClear)
            output[m_produced] = first;
        else
            for (std::size_t i = 0; i < string.length; ++i)
                output[m_produced + i] = output[string.start + i];
        string.start = static_cast<std::uint32_t>(m_produced);
        m_produced += string.length;
        m_previous = string;
        m_hasPrevious = true;
        if (m_next == m_growAt) {
            if (m_width < kLastWidth) {
                ++m_width;
                m_growAt = (1U << m_width) - 1;
            }
            break;
        }
    }
    m_Stream.Skip(bit / 8);
    m_usedBits = bit % 8;
}

} // namespace vireo
