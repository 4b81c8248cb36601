#pragma once

#include "imagefile/CcittCodes.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace vireo {

/// What the next bits of a coded row mean.
struct CcittMeaning {
    enum class Kind : std::uint8_t {
        Nothing,     ///< No code begins so.
        Terminating, ///< Ends a run, with `value` pixels more.
        MakeUp,      ///< `value` pixels more, and the run goes on.
        EndOfLine,   ///< Skipped.
        Pass,
        Horizontal,
        Extension,
        Vertical, ///< `value`: a1 - b1.
    };

    std::int16_t value = 0;
    std::uint8_t bits = 0; ///< The code's length; of Nothing, how many bits it takes to tell.
    Kind kind = Kind::Nothing;
};

/// Meanings by the next `Bits` bits.
template <unsigned Bits>
using CcittTable = std::array<CcittMeaning, std::size_t{1} << Bits>;

inline constexpr unsigned kRunTableBits = 13;
inline constexpr unsigned kModeTableBits = 7;

namespace ccitt {
template <std::size_t Size>
constexpr void Enter(std::array<CcittMeaning, Size>& table, unsigned tableBits, CcittCode code,
    CcittMeaning::Kind kind, int value)
{
    const unsigned free = tableBits - code.length;
    for (std::size_t i = 0; i < std::size_t{1} << free; ++i)
        table[(std::size_t{code.bits} << free) + i] = {
            static_cast<std::int16_t>(value), static_cast<std::uint8_t>(code.length), kind};
}

constexpr CcittTable<kRunTableBits> MakeRunTable(
    const std::array<CcittCode, 64>& terminating, const std::array<CcittCode, 27>& makeUp)
{
    using Kind = CcittMeaning::Kind;
    CcittTable<kRunTableBits> table;
    // No code has more than seven zeros in front but the end of the line, which has eleven.
    table.fill({0, 12, Kind::Nothing});
    for (unsigned zeros = 8; zeros < 11; ++zeros)
        Enter(table, kRunTableBits, {1, static_cast<std::uint16_t>(zeros + 1)}, Kind::Nothing, 0);
    for (std::size_t i = 0; i < terminating.size(); ++i)
        Enter(table, kRunTableBits, terminating[i], Kind::Terminating, static_cast<int>(i));
    for (std::size_t i = 0; i < makeUp.size(); ++i)
        Enter(table, kRunTableBits, makeUp[i], Kind::MakeUp, static_cast<int>(64 * (i + 1)));
    for (std::size_t i = 0; i < kCommonMakeUpCodes.size(); ++i)
        Enter(table, kRunTableBits, kCommonMakeUpCodes[i], Kind::MakeUp,
            static_cast<int>(64 * (i + 1 + makeUp.size())));
    Enter(table, kRunTableBits, kEndOfLineCode, Kind::EndOfLine, 0);
    return table;
}

constexpr CcittTable<kModeTableBits> MakeModeTable()
{
    using Kind = CcittMeaning::Kind;
    CcittTable<kModeTableBits> table;
    table.fill({0, kModeTableBits, Kind::Nothing});
    Enter(table, kModeTableBits, kPassCode, Kind::Pass, 0);
    Enter(table, kModeTableBits, kHorizontalCode, Kind::Horizontal, 0);
    Enter(table, kModeTableBits, kExtensionCode, Kind::Extension, 0);
    for (std::size_t i = 0; i < kVerticalCodes.size(); ++i)
        Enter(table, kModeTableBits, kVerticalCodes[i], Kind::Vertical,
            static_cast<int>(i) - kMostVertical);
    return table;
}
} // namespace ccitt

inline constexpr auto kWhiteRuns = ccitt::MakeRunTable(kWhiteTerminatingCodes, kWhiteMakeUpCodes);
inline constexpr auto kBlackRuns = ccitt::MakeRunTable(kBlackTerminatingCodes, kBlackMakeUpCodes);
inline constexpr auto kModes = ccitt::MakeModeTable();

/// A mode code for the fast way.
struct CcittPlainMode {
    std::int32_t offset = 0; ///< Of a1 or, with a pass code, a0 from b1 or b2.
    std::uint8_t bits = 0;
    bool isPass = false;
    bool isHorizontal = false;
};

namespace ccitt {
/// A code that is not plain puts a1 left of any row. So does VR3, which can pass two changes.
constexpr std::array<CcittPlainMode, std::size_t{1} << kModeTableBits> MakePlainModes()
{
    using Kind = CcittMeaning::Kind;
    constexpr std::int32_t kNowhere = -0x40000000;
    std::array<CcittPlainMode, std::size_t{1} << kModeTableBits> modes;
    for (std::size_t i = 0; i < modes.size(); ++i) {
        const CcittMeaning meaning = kModes[i];
        const bool isPlain = meaning.kind == Kind::Pass || meaning.kind == Kind::Horizontal
            || (meaning.kind == Kind::Vertical && meaning.value != kMostVertical);
        modes[i] = {isPlain ? meaning.value : kNowhere, meaning.bits, meaning.kind == Kind::Pass,
            meaning.kind == Kind::Horizontal};
    }
    return modes;
}
} // namespace ccitt

inline constexpr auto kPlainModes = ccitt::MakePlainModes();

/// What one look at the next bits gives when they are plain: the pixels of the run that is going
/// on and, where the bits suffice, those of the next run, which has the other colour. Codes of no
/// pixels at all are not plain, so that changes of colour ascend.
struct CcittStep {
    std::uint16_t first = 0;
    std::uint8_t second = 0;
    std::uint8_t bits : 4 = 0;  ///< How many are used up; 0: the bits are not plain.
    std::uint8_t ended : 4 = 0; ///< How many runs end; 0: the first one goes on.
};

inline constexpr unsigned kStepBits = 12;
using CcittStepTable = std::array<CcittStep, std::size_t{1} << kStepBits>;

namespace ccitt {
/// Reads a run from the first `there` of the bits. Returns how many bits it takes: 0 when they
/// do not hold all of it, which leaves in `going` the bits of its make-up codes.
constexpr unsigned ReadRun(const CcittTable<kRunTableBits>& table, std::size_t bits, unsigned there,
    unsigned& run, unsigned& going)
{
    using Kind = CcittMeaning::Kind;
    going = 0;
    for (run = 0;;) {
        const std::size_t index = (bits << going) & ((std::size_t{1} << kRunTableBits) - 1);
        const CcittMeaning meaning = table[index];
        const bool isPlain = meaning.kind == Kind::Terminating || meaning.kind == Kind::MakeUp;
        if (!isPlain || going + meaning.bits > there)
            return 0;
        going += meaning.bits;
        run += static_cast<unsigned>(meaning.value);
        if (meaning.kind == Kind::Terminating)
            return going;
    }
}

constexpr CcittStep MakeStep(const CcittTable<kRunTableBits>& table,
    const CcittTable<kRunTableBits>& otherTable, std::size_t bits)
{
    constexpr unsigned kMostSecond = 255, kBitsMask = 15;
    unsigned first = 0, second = 0, going = 0;
    const unsigned firstBits = ReadRun(table, bits, kStepBits, first, going);
    CcittStep step;
    if (firstBits != 0 && first == 0)
        return step;
    step.first = static_cast<std::uint16_t>(first);
    if (firstBits == 0) {
        step.bits = going & kBitsMask;
        return step;
    }
    const unsigned secondBits =
        ReadRun(otherTable, bits << firstBits, kStepBits - firstBits, second, going);
    const bool hasSecond = secondBits != 0 && second != 0 && second <= kMostSecond;
    step.bits = (firstBits + (hasSecond ? secondBits : 0)) & kBitsMask;
    step.second = static_cast<std::uint8_t>(hasSecond ? second : 0);
    step.ended = hasSecond ? 2 : 1;
    return step;
}

constexpr CcittStepTable MakeStepTable(
    const CcittTable<kRunTableBits>& table, const CcittTable<kRunTableBits>& otherTable)
{
    CcittStepTable steps;
    for (std::size_t i = 0; i < steps.size(); ++i)
        steps[i] = MakeStep(table, otherTable, i << (kRunTableBits - kStepBits));
    return steps;
}
} // namespace ccitt

/// By the colour of the run that is going on: white, black.
inline constexpr std::array<CcittStepTable, 2> kSteps = {
    ccitt::MakeStepTable(kWhiteRuns, kBlackRuns), ccitt::MakeStepTable(kBlackRuns, kWhiteRuns)};

} // namespace vireo
