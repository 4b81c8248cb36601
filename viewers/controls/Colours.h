#pragma once

#include <QColor>

#include <cstdint>
#include <iterator>

namespace vireo {

/// A colour value as device contexts and files hold it: 0x00BBGGRR.
using ColourValue = std::uint32_t;

namespace Colour {
inline constexpr ColourValue kBlack = 0x000000;
inline constexpr ColourValue kRed = 0x0000FF;
inline constexpr ColourValue kGreen = 0x00FF00;
inline constexpr ColourValue kBlue = 0xFF0000;
inline constexpr ColourValue kMagenta = 0xFF00FF;
inline constexpr ColourValue kCyan = 0xFFFF00;
inline constexpr ColourValue kYellow = 0x00FFFF;
inline constexpr ColourValue kWhite = 0xFFFFFF;
} // namespace Colour

/// The viewers' colour numbering: 0 red, 1 green, 2 blue, 3 black (for gray), 4 magenta, 5 cyan,
/// 6 yellow, 254 white; any other index is black.
constexpr ColourValue ColourOfIndex(int index)
{
    constexpr int kWhiteIndex = 254;
    constexpr ColourValue kColours[] = {Colour::kRed, Colour::kGreen, Colour::kBlue, Colour::kBlack,
        Colour::kMagenta, Colour::kCyan, Colour::kYellow};
    if (index == kWhiteIndex)
        return Colour::kWhite;
    return index >= 0 && index < static_cast<int>(std::size(kColours)) ? kColours[index]
                                                                       : Colour::kBlack;
}

inline QColor ToQColor(ColourValue value)
{
    return {static_cast<int>(value & 0xFF), static_cast<int>(value >> 8 & 0xFF),
        static_cast<int>(value >> 16 & 0xFF)};
}

} // namespace vireo
