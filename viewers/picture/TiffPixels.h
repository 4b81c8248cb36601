#pragma once

#include "imagefile/TifPage.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace vireo {

/// The samples of one pixel as the file has them: 16 bits are not reduced to 8.
struct PixelSamples {
    int count = 0; ///< 1, or 3 of red, green, blue; 0: there is no such pixel.
    std::array<std::uint16_t, 3> values{};
    bool operator==(const PixelSamples&) const = default;
};

/// How the rows of a page, as the reader delivers them, become samples and what is shown of them:
/// gray values, or red, green, blue, of one byte each.
///
/// A bilevel pixel is white where its bit is 1. Of 16 bits the upper eight are shown. Gray whose
/// page says that white is 0 is shown so; its samples stay as they are. A palette of grays only is
/// shown as gray.
class TiffPixels {
public:
    TiffPixels() = default;
    explicit TiffPixels(const TifPage& page);

    ColorDepth Depth() const { return m_depth; }
    /// Bytes a pixel as shown: 1 or 3.
    int Channels() const { return m_channels; }
    /// Whether what is shown are the row's own bytes.
    bool IsVerbatim() const { return m_isVerbatim; }

    /// Where in a row the bytes of `count` pixels from `first` on lie, both 0-based.
    std::uint64_t FirstByte(std::uint64_t first) const { return first * Bits() / 8; }
    std::uint64_t ByteCount(std::uint64_t first, std::uint64_t count) const
    {
        return ((first + count) * Bits() + 7) / 8 - FirstByte(first);
    }

    /// Converts `count` pixels from pixel `first` on, whose bytes begin at `bytes`, into
    /// count x Channels() bytes.
    void Show(const std::uint8_t* bytes, std::uint64_t first, std::size_t count,
        std::uint8_t* shown) const;

    /// Samples a pixel: 1 or 3.
    std::size_t SampleCount() const { return Bits() % 3 == 0 ? 3 : 1; }
    /// Takes the samples of `count` pixels from pixel `first` on, whose bytes begin at `bytes`:
    /// count x SampleCount() values.
    void TakeSamples(const std::uint8_t* bytes, std::uint64_t first, std::size_t count,
        std::uint16_t* samples) const;
    /// The samples of pixel `column`, whose bytes begin at `bytes`.
    PixelSamples Samples(const std::uint8_t* bytes, std::uint64_t column) const;
    /// What is shown for a palette index.
    TifPage::Color PaletteColor(std::uint8_t index) const { return m_palette[index]; }

private:
    std::uint64_t Bits() const { return BitsPerPixel(m_depth); }
    void ShowIndexes(const std::uint8_t* bytes, std::size_t count, std::uint8_t* shown) const;

    ColorDepth m_depth = ColorDepth::Gray8;
    ByteOrder m_order = ByteOrder::Little;
    bool m_isInverted = false; ///< Gray, 0 is white.
    bool m_isVerbatim = true;
    int m_channels = 1;
    std::array<TifPage::Color, 256> m_palette{};
};

} // namespace vireo
