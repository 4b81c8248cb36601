// The fast way of the CCITT decoder: plain codes, several at a time, far from the end of the input.

#include "imagefile/CDecoderHuffman.h"
#include "imagefile/CcittTables.h"
#include "imagefile/TifBits.h"

#include <algorithm>

namespace vireo {

namespace {

/// So many bytes of input must be at hand: four refills, of which each uses up to 7.
constexpr std::size_t kPlainBytes = 48;

/// Where decoding stands in the row and in the one above; the names are those of T.6.
struct CodeWalk {
    std::int32_t a0;
    const std::int32_t* b1;
    std::int32_t* a1; ///< Where the next change goes.
    bool isBlack;

    /// Goes on to a place right of a0, which is a change or, at a pass code, none.
    void PutIf(bool isChange, std::int32_t place)
    {
        *a1 = place;
        a1 += isChange;
        isBlack ^= isChange;
        a0 = place;
        b1 += 2 - isChange;
        // Left of b1 the change before can be the next one, right of b1 the next one can be passed.
        if (static_cast<int>(b1[-2] > a0) | static_cast<int>(b1[0] <= a0)) [[unlikely]]
            b1 += b1[0] <= a0 ? 2 : -2;
    }
};

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

/// Does nothing and returns false when the code's runs are not plain.
bool TakeHorizontal(BitWindow& given, CodeWalk& walk, std::int32_t width)
{
    BitWindow window = given;
    window.Drop(kHorizontalCode.length);
    window.Refill();
    const CcittStep step = kSteps[walk.isBlack][window.bits >> (64 - kStepBits)];
    window.Drop(step.bits);
    std::int32_t a1 = std::max(walk.a0, 0) + step.first;
    std::int32_t a2 = a1 + step.second;
    if (step.ended != 2) {
        if (step.ended == 0 && !AddPlainRun(window, walk.isBlack, a1))
            return false;
        a2 = a1;
        if (!AddPlainRun(window, !walk.isBlack, a2))
            return false;
    }
    if (a1 >= a2 || a2 >= width || a1 <= walk.a1[-1])
        return false;
    walk.a1[0] = a1;
    walk.a1[1] = a2;
    walk.a1 += 2;
    walk.a0 = a2;
    while (*walk.b1 <= a2)
        walk.b1 += 2;
    given = window;
    return true;
}

} // namespace

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
    constexpr int kCodesAWindow = 8; // Of up to 7 bits each.
    if (m_Stream.Ahead() < kPlainBytes)
        return;
    const std::uint8_t* const last = m_Stream.Next() + (m_Stream.Ahead() - kPlainBytes);
    const std::int32_t* const most = m_row.positions + m_uMostChanges;
    const std::int32_t width = m_iWidth;
    BitWindow window = OpenWindow();
    CodeWalk walk{a0, m_reference.positions + b, m_row.positions + m_row.count, m_row.IsBlack()};
    for (bool isPlain = true; isPlain && window.next <= last && walk.a1 < most;) {
        window.Refill();
        for (int i = 0; i < kCodesAWindow; ++i) {
            const CcittPlainMode mode = kPlainModes[window.bits >> (64 - kModeTableBits)];
            if (mode.isHorizontal) {
                isPlain = TakeHorizontal(window, walk, width);
                break;
            }
            const std::int32_t place = walk.b1[mode.isPass] + mode.offset;
            isPlain = place > walk.a0 && place < width;
            if (!isPlain)
                break;
            walk.PutIf(!mode.isPass, place);
            window.Drop(mode.bits);
        }
    }
    a0 = walk.a0;
    b = static_cast<std::size_t>(walk.b1 - m_reference.positions);
    m_row.count = static_cast<std::size_t>(walk.a1 - m_row.positions);
    CloseWindow(window);
}

} // namespace vireo
