#include "imagefile/CHuffmanCoder.h"

#include "imagefile/CcittBits.h"
#include "imagefile/CcittCodes.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <utility>

namespace vireo {

namespace {

constexpr std::int32_t kMakeUpStep = 64;
constexpr std::int32_t kLongestMakeUp = 2560;
/// The longest run that takes one make-up code.
constexpr std::int32_t kLongestRun = kLongestMakeUp + kMakeUpStep - 1;

/// A code of up to 25 bits.
struct LongCode {
    std::uint32_t bits : 27;
    std::uint32_t length : 5;
};

/// The whole codes of runs that take at most one make-up code, by their length.
using RunCodes = std::array<LongCode, kLongestRun + 1>;

constexpr RunCodes JoinCodes(
    const std::array<CcittCode, kMakeUpStep>& terminating, const std::array<CcittCode, 27>& makeUp)
{
    RunCodes codes{};
    for (std::size_t run = 0; run < codes.size(); ++run) {
        const std::size_t steps = run / kMakeUpStep;
        const CcittCode last = terminating[run % kMakeUpStep];
        CcittCode first = {0, 0};
        if (steps > makeUp.size())
            first = kCommonMakeUpCodes[steps - makeUp.size() - 1];
        else if (steps > 0)
            first = makeUp[steps - 1];
        const std::uint32_t bits = std::uint32_t{first.bits} << last.length | last.bits;
        codes[run] = {bits & 0x7ffffff, static_cast<unsigned>(first.length + last.length) & 31};
    }
    return codes;
}

constexpr RunCodes kRunCodes[] = {JoinCodes(kWhiteTerminatingCodes, kWhiteMakeUpCodes),
    JoinCodes(kBlackTerminatingCodes, kBlackMakeUpCodes)};

void PutCode(CcittBits& bits, CcittCode code)
{
    bits.Put(code.bits, code.length);
}

void PutRun(CcittBits& bits, const RunCodes& codes, std::int32_t run)
{
    for (; run > kLongestRun; run -= kLongestMakeUp)
        PutCode(bits, kCommonMakeUpCodes.back());
    const LongCode code = codes[static_cast<std::size_t>(run)];
    bits.Put(code.bits, code.length);
}

/// Codes a row that equals the one above, as pages are full of: V0 for every changing element and
/// for the end of the row.
void PutEqualRow(CcittBits& bits, std::size_t changes)
{
    constexpr std::size_t kTogether = 32;
    std::size_t left = changes + 1;
    for (; left > kTogether; left -= kTogether)
        bits.Put(0xffffffff, kTogether);
    bits.Put((std::uint64_t{1} << left) - 1, static_cast<unsigned>(left));
}

} // namespace

ImageResult CHuffmanCoder::BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t,
    std::uint32_t, std::uint32_t, std::uint32_t)
{
    constexpr std::uint32_t kWidest = std::numeric_limits<std::int32_t>::max();
    if (depth != ColorDepth::Bilevel || width > kWidest || m_scheme > Scheme::Group4)
        return ImageResult::InvalidHuffmanCoderArguments;
    m_width = static_cast<std::int32_t>(width);
    m_rowNumber = 0;
    m_bits = 0;
    m_bitCount = 0;
    if (!m_changes.Allocate(width) || !m_referenceChanges.Allocate(width)
        || !AllocateZeroed(m_reference, BytesPerRow(depth, width) + kRowPadding))
        return ImageResult::TifOutOfMemory;
    constexpr std::uint8_t kWhite = 0xff;
    std::fill(m_reference.begin(), m_reference.end(), kWhite);
    return BeginRows(depth, width);
}

void CHuffmanCoder::CodeRuns(CcittBits& given)
{
    m_changes.Find(Row());
    CcittBits bits = given; // A copy stays in registers.
    const std::int32_t* change = m_changes.begin();
    std::int32_t place = 0;
    for (std::size_t colour = 0; place < m_width; colour ^= 1, ++change) {
        PutRun(bits, kRunCodes[colour], *change - place);
        place = *change;
    }
    given = bits;
}

/// T.6, 2.2.1 to 2.2.5. The names are those of the recommendation; a row's changing elements of a
/// colour are its even or its odd ones, and so a1 and b1 are always alike even or odd.
void CHuffmanCoder::CodeAgainstReference(CcittBits& given) const
{
    CcittBits bits = given;
    const std::int32_t* a1 = m_changes.begin();
    const std::int32_t* b1 = m_referenceChanges.begin();
    std::int32_t a0 = -1;
    std::size_t colour = 0;
    while (a0 < m_width) {
        if (b1[1] < *a1) {
            PutCode(bits, kPassCode);
            a0 = b1[1];
            b1 += 2;
            continue;
        }
        const std::int32_t offset = *a1 - *b1;
        if (offset >= -kMostVertical && offset <= kMostVertical) {
            PutCode(bits, kVerticalCodes[static_cast<std::size_t>(offset + kMostVertical)]);
            a0 = *a1++;
            colour ^= 1;
            // To the left an element of the other colour may have come into view. It hardly ever
            // does: a guess by the processor is faster than the sum.
            if (b1[-1] > a0) [[unlikely]]
                --b1;
            else
                ++b1;
        } else {
            PutCode(bits, kHorizontalCode);
            PutRun(bits, kRunCodes[colour], *a1 - std::max(a0, 0));
            PutRun(bits, kRunCodes[colour ^ 1], a1[1] - *a1);
            a0 = a1[1];
            a1 += 2;
        }
        while (*b1 <= a0 && *b1 < m_width)
            b1 += 2;
    }
    given = bits;
}

void CHuffmanCoder::CodeByReference(CcittBits& bits)
{
    if (std::memcmp(Row(), m_reference.data(), RowBytes()) == 0) {
        PutEqualRow(bits, m_changes.Count());
        return;
    }
    std::swap(m_changes, m_referenceChanges);
    m_changes.Find(Row());
    CodeAgainstReference(bits);
}

ImageResult CHuffmanCoder::LineDone()
{
    CcittBits bits(Output(), m_bits, m_bitCount);
    constexpr std::uint32_t kRowsTogether = 4;
    const bool isCodedByRuns = m_scheme == Scheme::ModifiedHuffman
        || (m_scheme == Scheme::Group3 && m_rowNumber % kRowsTogether == 0);
    if (m_scheme == Scheme::Group3) {
        PutCode(bits, kEndOfLineCode);
        bits.Put(isCodedByRuns ? 1 : 0, 1);
    }
    if (isCodedByRuns)
        CodeRuns(bits);
    else
        CodeByReference(bits);
    if (m_scheme == Scheme::ModifiedHuffman)
        bits.PadByte();
    else
        SwapRow(m_reference);
    bits.Finish(m_bits, m_bitCount);
    ++m_rowNumber;
    return Output().Result();
}

ImageResult CHuffmanCoder::EndImage(std::uint32_t status)
{
    CcittBits bits(Output(), m_bits, m_bitCount);
    PutCode(bits, kEndOfLineCode);
    PutCode(bits, kEndOfLineCode);
    bits.PadByte();
    bits.Finish(m_bits, m_bitCount);
    m_changes = {};
    m_referenceChanges = {};
    m_reference = {};
    return CTIFCoder::EndImage(status);
}

} // namespace vireo
