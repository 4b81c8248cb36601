#pragma once

#include "platform/Text.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vireo {

/// A noise file in its text form, put together by hand.
inline std::string TextNoiseFile(const std::string& lines, const std::string& planes)
{
    constexpr int kFirstTwoLines = 13 + 12 + 10 + 1;
    return Format(
               "[Noise Test]\nDataPointer=%10d\n", kFirstTwoLines + static_cast<int>(lines.size()))
        + lines + planes;
}

/// A 48-byte binary header.
inline std::string BinaryNoiseHeader(std::int32_t lineLength, bool colour, char type = 19)
{
    std::string header(48, '\0');
    header[11] = type;
    header[17] = colour ? 1 : 0;
    for (std::size_t byte = 0; byte < 4; ++byte)
        header[28 + byte] = static_cast<char>(lineLength >> (8 * byte));
    return header;
}

/// The 44-byte trailer of the binary form.
inline std::string NoiseTrailer(std::string_view scannerName)
{
    std::string trailer(scannerName);
    trailer.resize(44, '\0');
    return trailer;
}

/// A plane of one value.
inline std::string FlatPlane(std::size_t pixels, int value)
{
    return std::string(pixels, static_cast<char>(value));
}

} // namespace vireo
