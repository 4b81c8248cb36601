#pragma once

#include <cstdint>

namespace vireo {

/// What a pixel is, by the codes that the reader, the receivers, the writer and the picture record
/// share.
enum class ColorDepth : std::uint32_t {
    Bilevel = 0, ///< 1 bit a pixel, packed, most significant bit first.
    Gray8 = 1,
    Rgb8 = 2, ///< Red, green, blue, one byte each.
    Palette8 = 3,
    Gray16 = 4, ///< 16-bit samples lie as in the file's byte order; writers write little-endian.
    Rgb16 = 5,
};

constexpr unsigned BitsPerPixel(ColorDepth depth)
{
    constexpr unsigned kBits[] = {1, 8, 24, 8, 16, 48};
    return kBits[static_cast<unsigned>(depth)];
}

/// Bytes a row of `width` pixels takes: whole bytes, the last one filled up.
constexpr std::uint64_t BytesPerRow(ColorDepth depth, std::uint32_t width)
{
    return (std::uint64_t{BitsPerPixel(depth)} * width + 7) / 8;
}

} // namespace vireo
