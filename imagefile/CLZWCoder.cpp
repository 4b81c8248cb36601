#include "imagefile/CLZWCoder.h"

#include "imagefile/TifBits.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace vireo {

namespace {

constexpr std::uint32_t kClearCode = 256;
constexpr std::uint32_t kEndCode = 257;
constexpr std::uint32_t kFirstCode = 258;
constexpr std::uint32_t kHighestCode = 4095;
constexpr unsigned kShortestCode = 9;
constexpr unsigned kCodeMask = 0xfff;
constexpr unsigned kGenerationShift = 12;
constexpr std::uint32_t kGenerations = 15;

/// Eight bytes that all have this value.
constexpr std::uint64_t EightOf(std::uint32_t byte)
{
    return byte * std::uint64_t{0x0101010101010101};
}

std::uint64_t LoadEight(const std::uint8_t* bytes)
{
    std::uint64_t eight;
    std::memcpy(&eight, bytes, sizeof eight);
    return eight;
}

/// How many bytes from `first` on have a value. Reads up to 7 bytes behind `end`.
std::size_t CountEqual(const std::uint8_t* first, const std::uint8_t* end, std::uint32_t byte)
{
    const std::uint8_t* place = first;
    while (place < end && LoadEight(place) == EightOf(byte))
        place += sizeof(std::uint64_t);
    while (place < end && *place == byte)
        ++place;
    return static_cast<std::size_t>(std::min(place, end) - first);
}

} // namespace

ImageResult CLZWCoder::BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t,
    std::uint32_t, std::uint32_t, std::uint32_t)
{
    if (depth > ColorDepth::Rgb16)
        return ImageResult::InvalidTiffArguments;
    constexpr std::size_t kBytes = 256;
    if (!AllocateZeroed(m_table, kCodes * kBytes))
        return ImageResult::TifOutOfMemory;
    m_bits = kClearCode;
    m_bitCount = kShortestCode;
    m_bFirst = true;
    m_pendingNext = m_pending.data();
    m_tag = std::uint32_t{1} << kGenerationShift;
    BeginTable();
    return BeginRows(depth, width);
}

void CLZWCoder::BeginTable()
{
    m_width = kShortestCode;
    m_growth = std::uint32_t{1} << kShortestCode;
    m_fresh = m_tag | kFirstCode;
    for (Runs& runs : m_runs)
        runs.longest = 0;
    SetPendingEnd();
}

/// One new string comes with every code, so one comparison sees both the list full and the width
/// at its end.
void CLZWCoder::SetPendingEnd()
{
    const std::size_t untilGrowth = m_growth - (m_fresh & kCodeMask);
    const auto room = static_cast<std::size_t>(m_pending.data() + kMostPending - m_pendingNext);
    m_pendingEnd = m_pendingNext + std::min(untilGrowth, room);
}

void CLZWCoder::MakeRoom()
{
    const bool grows = (m_fresh & kCodeMask) == m_growth;
    const bool isFull = grows && m_width == kLongestCode;
    WritePending();
    if (isFull) {
        *m_pendingNext++ = kClearCode;
        WritePending();
        m_tag += std::uint32_t{1} << kGenerationShift;
        if (m_tag > kGenerations << kGenerationShift) {
            m_tag = std::uint32_t{1} << kGenerationShift;
            std::fill(m_table.begin(), m_table.end(), std::uint16_t{0});
        }
        BeginTable();
        return;
    }
    if (grows) {
        ++m_width;
        m_growth = std::min(m_growth * 2, kHighestCode);
    }
    SetPendingEnd();
}

/// Appends the pending codes to the bits, four at a time: with the at most 7 bits left before they
/// fit 64 bits, which are stored at once.
void CLZWCoder::WritePending()
{
    const std::uint16_t* code = m_pending.data();
    const auto count = static_cast<std::size_t>(m_pendingNext - code);
    std::uint8_t* out = Output().Reserve((count + 2) * kLongestCode / 8);
    std::uint64_t bits = m_bits;
    unsigned bitCount = m_bitCount;
    const unsigned width = m_width;
    const auto storeBytes = [&] {
        StoreBigEndian64(out, bits << 1 << (63 - bitCount));
        out += bitCount / 8;
        bitCount %= 8;
    };
    storeBytes(); // The first clear code is longer than 7 bits.
    for (; m_pendingNext - code >= 4; code += 4) {
        const std::uint64_t upper = std::uint64_t{code[0]} << width | code[1];
        const std::uint64_t lower = std::uint64_t{code[2]} << width | code[3];
        bits = bits << 4 * width | upper << 2 * width | lower;
        bitCount += 4 * width;
        storeBytes();
    }
    for (; code != m_pendingNext; ++code) {
        bits = bits << width | *code;
        bitCount += width;
        storeBytes();
    }
    Output().AdvanceTo(out);
    m_bits = bits;
    m_bitCount = bitCount;
    m_pendingNext = m_pending.data();
}

inline void CLZWCoder::AddString(std::uint32_t code, std::uint16_t& cell)
{
    *m_pendingNext++ = static_cast<std::uint16_t>(code);
    cell = static_cast<std::uint16_t>(m_fresh++);
    if (m_pendingNext == m_pendingEnd)
        MakeRoom();
}

CLZWCoder::Runs& CLZWCoder::RunsOf(std::uint8_t byte)
{
    Runs& runs = m_runs[byte % m_runs.size()];
    if (runs.longest == 0 || runs.byte != byte) {
        runs.byte = byte;
        runs.longest = 1;
        runs.codes[0] = byte;
    }
    return runs;
}

/// Codes `count` more bytes that equal the one byte of the prefix, as following the table would:
/// the longest known string of them, which adds the next longer one, and again.
void CLZWCoder::FollowRun(std::size_t count)
{
    const auto byte = static_cast<std::uint8_t>(m_prefix);
    for (++count;;) {              // With the prefix.
        Runs& runs = RunsOf(byte); // A clear code has perhaps emptied it.
        if (count <= runs.longest) {
            m_prefix = runs.codes[count - 1];
            return;
        }
        const std::uint32_t longest = runs.codes[runs.longest - 1];
        std::uint16_t& cell = Cell(longest, byte);
        if (const std::uint32_t found = cell ^ m_tag; found <= kCodeMask) {
            runs.codes[runs.longest++] = static_cast<std::uint16_t>(found);
            continue;
        }
        count -= runs.longest;
        runs.codes[runs.longest++] = static_cast<std::uint16_t>(m_fresh & kCodeMask);
        AddString(longest, cell);
    }
}

/// Tried and slower: coding without a branch for strings known and unknown (half the speed on
/// noise, where the processor guesses well that a string is unknown and goes on without waiting for
/// the table); cells ordered by prefix before byte (with runs taken apart, up to 40 % slower: the
/// few bytes that most pictures are made of then share no cache lines), or by the difference of
/// neighbouring bytes; the table on a page of 2 MiB (no difference).
ImageResult CLZWCoder::LineDone()
{
    const std::uint8_t* next = Row();
    const std::uint8_t* const end = next + RowBytes();
    if (m_bFirst)
        m_prefix = *next++;
    m_bFirst = false;
    // Copies that stay in registers: in a struct or as members they go through memory at every
    // byte, which costs half of the speed.
    std::uint32_t prefix = m_prefix;
    std::uint32_t tag = m_tag;
    std::uint32_t fresh = m_fresh;
    std::uint16_t* pending = m_pendingNext;
    std::uint16_t* pendingEnd = m_pendingEnd;
    const auto outside = [&](auto&& work) {
        m_prefix = prefix;
        m_fresh = fresh;
        m_pendingNext = pending;
        work();
        prefix = m_prefix;
        tag = m_tag;
        fresh = m_fresh;
        pending = m_pendingNext;
        pendingEnd = m_pendingEnd;
    };
    while (next < end) {
        const std::uint32_t byte = *next++;
        std::uint16_t& cell = Cell(prefix, byte);
        const std::uint32_t found = cell ^ tag;
        if (found <= kCodeMask) {
            prefix = found;
            continue;
        }
        *pending++ = static_cast<std::uint16_t>(prefix);
        cell = static_cast<std::uint16_t>(fresh++);
        prefix = byte;
        if (pending == pendingEnd)
            outside([&] { MakeRoom(); });
        if (*next == byte && LoadEight(next) == EightOf(byte)) {
            const std::size_t count = CountEqual(next, end, byte);
            outside([&] { FollowRun(count); });
            next += count;
        }
    }
    outside([] {});
    return Output().Result();
}

ImageResult CLZWCoder::EndImage(std::uint32_t status)
{
    if (!m_bFirst) {
        WritePending();
        *m_pendingNext++ = static_cast<std::uint16_t>(m_prefix);
        *m_pendingNext++ = kEndCode;
        WritePending();
        if (m_bitCount > 0) {
            std::uint8_t* const last = Output().Reserve(1);
            *last = static_cast<std::uint8_t>(m_bits << (8 - m_bitCount));
            Output().AdvanceTo(last + 1);
        }
    }
    m_table = {};
    return CTIFCoder::EndImage(status);
}

} // namespace vireo
