#include "imagefile/CDecoderLZW.h"

#include "imagefile/TifBits.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace vireo {

namespace {

constexpr unsigned kClear = 256;
constexpr unsigned kEnd = 257;
constexpr std::uint32_t kFirstFree = 258;
constexpr std::uint32_t kCodes = 4096;
constexpr unsigned kFirstWidth = 9;
constexpr unsigned kLastWidth = 12;

constexpr std::size_t kRoots = 256; ///< Single bytes in front of the output.
/// From one clear code to the next, 3,838 strings at most follow the first byte, each at most one
/// byte longer than the longest before it.
constexpr std::size_t kMostBetweenClears = std::size_t{3839} * 3840 / 2;
/// At a clear code the output is dropped when it has become this large: what is written then stays
/// within the processor's caches.
constexpr std::size_t kDropBytes = 64 * 1024;
/// How far ahead of a row is decoded: short rows cost little each, and long ones are copied out
/// while they are in the cache.
constexpr std::size_t kLeastAhead = 4 * 1024;
constexpr std::size_t kMostAhead = 32 * 1024;
/// Strings are copied in steps of 16 bytes, and over their end.
constexpr std::size_t kStep = 16;
constexpr std::size_t kOutputBytes = kRoots + kDropBytes + kMostAhead + kMostBetweenClears + kStep;
/// So many codes are taken from one load of 64 bits, of which 57 are there at least.
constexpr std::uint32_t kBatch = 4;

/// The places may overlap where only the step's first bytes are wanted.
void CopyStep(std::uint8_t* to, const std::uint8_t* from)
{
    std::array<std::uint8_t, kStep> step;
    std::memcpy(step.data(), from, kStep);
    std::memcpy(to, step.data(), kStep);
}

/// Copies a string that lies at least as far back as it is long.
void CopyApart(std::uint8_t* to, const std::uint8_t* from, std::size_t length)
{
    CopyStep(to, from);
    for (std::size_t done = kStep; done < length; done += kStep)
        CopyStep(to + done, from + done);
}

/// Copies the string before and its first byte, right behind that string.
void CopyAdjoining(std::uint8_t* to, const std::uint8_t* from, std::size_t length)
{
    if (length > kStep) {
        CopyApart(to, from, length);
        return;
    }
    for (std::size_t i = 0; i < length; ++i)
        to[i] = from[i];
}

} // namespace

CTIFReader::CDecoderLZW::CDecoderLZW(std::size_t bytesPerRow, TifStream& stream)
    : CDecoder(bytesPerRow, stream),
      m_output(std::make_unique_for_overwrite<std::uint8_t[]>(kOutputBytes)),
      m_strings(std::make_unique_for_overwrite<String[]>(kCodes))
{
    for (std::uint32_t code = 0; code < kRoots; ++code) {
        m_strings[code] = {code, 1};
        m_output[code] = static_cast<std::uint8_t>(code);
    }
    // These are no strings.
    m_strings[kClear] = m_strings[kEnd] = {0, 0};
}

ImageResult CTIFReader::CDecoderLZW::StartStrip()
{
    m_produced = m_delivered = kRoots;
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
    m_previous.length = 0;
}

void CTIFReader::CDecoderLZW::GrowWidth()
{
    if (m_next != m_growAt || m_width == kLastWidth)
        return;
    ++m_width;
    m_growAt = m_width == kLastWidth ? kCodes : (1U << m_width) - 1;
}

ImageResult CTIFReader::CDecoderLZW::DecodeLine(std::uint8_t* row)
{
    for (std::size_t left = m_uBytesPerRow;;) {
        const std::size_t count = std::min(left, m_produced - m_delivered);
        CopyInPieces(row, m_output.get() + m_delivered, count);
        m_delivered += count;
        row += count;
        left -= count;
        if (left == 0 || m_state == State::Ended)
            return ImageResult::Ok;
        if (m_state == State::Failed)
            return ImageResult::TifFormatError;
        DecodeSome(std::clamp(left, kLeastAhead, kMostAhead));
    }
}

/// Decodes until at least `wanted` bytes more are there or the strip is at its end. Everything
/// decoded before has been delivered.
void CTIFReader::CDecoderLZW::DecodeSome(std::size_t wanted)
{
    while (m_state == State::Decoding && m_produced - m_delivered < wanted) {
        if (m_Stream.Ahead() < sizeof(std::uint64_t))
            m_Stream.Refill();
        const std::size_t codes = (8 * m_Stream.Ahead() - m_usedBits) / m_width;
        if (codes == 0)
            m_state = State::Ended;
        else if (m_previous.length != 0 && codes >= kBatch && m_next + kBatch <= m_growAt)
            DecodeRunOfWidth(codes, m_delivered + wanted);
        else
            DecodeCode();
    }
}

void CTIFReader::CDecoderLZW::DecodeRunOfWidth(std::size_t codes, std::size_t target)
{
    switch (m_width) {
    case 9:
        return DecodeRun<9>(codes, target);
    case 10:
        return DecodeRun<10>(codes, target);
    case 11:
        return DecodeRun<11>(codes, target);
    default:
        return DecodeRun<12>(codes, target);
    }
}

/// Decodes up to `codes` codes, which the stream has at hand, in batches: until the width grows,
/// the target is reached, or a code comes that is no string. That one is left for DecodeCode.
template <unsigned Width>
void CTIFReader::CDecoderLZW::DecodeRun(std::size_t codes, std::size_t target)
{
    // In variables of our own all this stays in registers.
    const std::uint8_t* const input = m_Stream.Next();
    std::uint8_t* const output = m_output.get();
    String* const strings = m_strings.get();
    std::size_t bit = m_usedBits;
    std::size_t produced = m_produced;
    String previous = m_previous;
    std::uint32_t next = m_next;
    const std::uint32_t last =
        static_cast<std::uint32_t>(std::min<std::size_t>(m_growAt, next + codes)) - kBatch;

    bool isString = true;
    while (isString && next <= last && produced < target) {
        std::uint64_t bits = LoadBigEndian64(input + bit / 8) << bit % 8;
        for (std::uint32_t i = 0; i < kBatch; ++i) {
            const auto code = static_cast<std::uint32_t>(bits >> (64 - Width));
            bits <<= Width;
            String string;
            if (code < next) [[likely]] {
                string = strings[code];
                CopyApart(output + produced, output + string.start, string.length);
            } else if (code == next) {
                string.length = previous.length + 1;
                CopyAdjoining(output + produced, output + previous.start, string.length);
            } else {
                string.length = 0;
            }
            if (string.length == 0) {
                isString = false;
                break;
            }
            bit += Width;
            strings[next++] = {previous.start, previous.length + 1};
            previous = {static_cast<std::uint32_t>(produced), string.length};
            produced += string.length;
        }
    }

    m_Stream.Skip(bit / 8);
    m_usedBits = bit % 8;
    m_produced = produced;
    m_previous = previous;
    m_next = next;
    if (isString)
        GrowWidth();
    else
        DecodeCode();
}

/// Decodes one code, whatever it may be.
void CTIFReader::CDecoderLZW::DecodeCode()
{
    const auto code =
        static_cast<unsigned>(LoadBigEndian64(m_Stream.Next()) << m_usedBits >> (64 - m_width));
    m_Stream.Skip((m_usedBits + m_width) / 8);
    m_usedBits = (m_usedBits + m_width) % 8;
    if (code == kClear) {
        Clear();
        if (m_produced > kDropBytes)
            DropDelivered();
    } else if (code == kEnd) {
        m_state = State::Ended;
    } else if (m_previous.length == 0) {
        PutFirst(code);
    } else if (code > m_next || m_next == kCodes) {
        m_state = State::Failed;
    } else {
        m_strings[m_next] = {m_previous.start, m_previous.length + 1};
        const String string = m_strings[code];
        std::uint8_t* const to = m_output.get() + m_produced;
        CopyAdjoining(to, m_output.get() + string.start, string.length);
        m_previous = {static_cast<std::uint32_t>(m_produced), string.length};
        m_produced += string.length;
        ++m_next;
        GrowWidth();
    }
}

/// The first code of a strip or behind a clear code makes no entry.
void CTIFReader::CDecoderLZW::PutFirst(unsigned code)
{
    if (code >= kRoots) {
        m_state = State::Failed;
        return;
    }
    m_previous = {static_cast<std::uint32_t>(m_produced), 1};
    m_output[m_produced++] = static_cast<std::uint8_t>(code);
}

void CTIFReader::CDecoderLZW::DropDelivered()
{
    m_produced -= m_delivered;
    std::memmove(m_output.get() + kRoots, m_output.get() + m_delivered, m_produced);
    m_delivered = kRoots;
    m_produced += kRoots;
}

} // namespace vireo
