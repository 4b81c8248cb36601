#pragma once

#include "viewers/controls/PictureRows.h"

#include <cstddef>
#include <cstdint>

namespace vireo {

/// 32-bit pixels 0xFFRRGGBB in memory, as QImage::Format_RGB32 has them.
struct PixelTarget {
    std::uint32_t* pixels = nullptr;
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::ptrdiff_t pixelsPerRow = 0;

    std::uint32_t* Row(std::int64_t row) const { return pixels + row * pixelsPerRow; }
    /// `count` of its rows, from row `first` on.
    PixelTarget Rows(std::int64_t first, std::int64_t count) const
    {
        return {Row(first), width, count, pixelsPerRow};
    }
};

inline constexpr std::uint32_t kWhitePixel = 0xFFFFFFFF;
inline constexpr std::uint32_t kBlackPixel = 0xFF000000;

/// Makes white what lies below `firstRow`, and to the right of `firstColumn`.
void FillWhite(const PixelTarget& target, std::int64_t firstRow, std::int64_t firstColumn);

/// Where the channels of a row of a picture lie: side by side in each pixel, or one plane behind
/// the other.
struct ChannelLayout {
    std::int64_t pixelStep = 1;   ///< Bytes from a pixel to the next.
    std::int64_t channelStep = 0; ///< Bytes from a channel to the next; 0 for gray.

    static ChannelLayout Interleaved(int channels)
    {
        return {channels, channels == PictureRows::kRgb ? 1 : 0};
    }
    static ChannelLayout Planes(int channels, std::int64_t planeBytes)
    {
        return {1, channels == PictureRows::kRgb ? planeBytes : 0};
    }
};

/// A pixel whose first channel lies there.
inline std::uint32_t PixelAt(const std::uint8_t* first, std::int64_t channelStep)
{
    return kBlackPixel | static_cast<std::uint32_t>(first[0]) << 16
        | static_cast<std::uint32_t>(first[channelStep]) << 8 | first[2 * channelStep];
}

/// Writes `count` pixels whose first channels begin at `in`.
void ConvertPixels(
    const std::uint8_t* in, const ChannelLayout& layout, std::int64_t count, std::uint32_t* out);

} // namespace vireo
