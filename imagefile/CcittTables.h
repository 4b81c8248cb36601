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

} // namespace vireo
