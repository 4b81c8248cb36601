#include "viewers/picture/TiffPixels.h"

#include <algorithm>
#include <cstring>

namespace vireo {

namespace {

constexpr std::uint8_t kWhite = 255;
constexpr std::size_t kPixelsPerByte = 8;

using ByteOfPixels = std::array<std::uint8_t, kPixelsPerByte>;

/// What the eight pixels of a byte are shown as, the most significant bit first.
constexpr std::array<ByteOfPixels, 256> MakeBilevelTable()
{
    std::array<ByteOfPixels, 256> table{};
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        for (unsigned pixel = 0; pixel < kPixelsPerByte; ++pixel)
            table[byte][pixel] = (byte << pixel & 0x80U) != 0 ? kWhite : 0;
    }
    return table;
}
constexpr std::array<ByteOfPixels, 256> kBilevel = MakeBilevelTable();

void ShowBits(const std::uint8_t* bytes, std::uint64_t first, std::size_t count, std::uint8_t* out)
{
    std::size_t bit = first % kPixelsPerByte;
    for (std::size_t done = 0; done < count; bit = 0, ++bytes) {
        const std::size_t part = std::min(kPixelsPerByte - bit, count - done);
        const ByteOfPixels& pixels = kBilevel[*bytes];
        if (part == kPixelsPerByte)
            std::memcpy(out + done, pixels.data(), kPixelsPerByte);
        else
            std::copy_n(pixels.data() + bit, part, out + done);
        done += part;
    }
}

/// `bytes` begins with the first sample's upper byte.
void ShowUpperBytes(
    const std::uint8_t* __restrict bytes, std::size_t count, std::uint8_t* __restrict out)
{
    for (std::size_t i = 0; i < count; ++i)
        out[i] = bytes[2 * i];
}

void Invert(std::uint8_t* values, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        values[i] = static_cast<std::uint8_t>(~values[i]);
}

bool IsGray(const TifPage::Color& colour)
{
    return colour.red == colour.green && colour.green == colour.blue;
}

} // namespace

TiffPixels::TiffPixels(const TifPage& page)
    : m_depth(page.depth),
      m_order(page.order),
      m_palette(page.colorMap)
{
    const bool isGray = m_depth == ColorDepth::Gray8 || m_depth == ColorDepth::Gray16;
    m_isInverted = isGray && page.photometric == TifPage::kWhiteIsZero;
    const bool isColour = m_depth == ColorDepth::Rgb8 || m_depth == ColorDepth::Rgb16
        || (m_depth == ColorDepth::Palette8
            && !std::all_of(m_palette.begin(), m_palette.end(), IsGray));
    m_channels = isColour ? 3 : 1;
    m_isVerbatim = m_depth == ColorDepth::Rgb8 || (m_depth == ColorDepth::Gray8 && !m_isInverted);
}

void TiffPixels::ShowIndexes(
    const std::uint8_t* bytes, std::size_t count, std::uint8_t* shown) const
{
    for (std::size_t i = 0; i < count; ++i) {
        const TifPage::Color& colour = m_palette[bytes[i]];
        if (m_channels == 1) {
            shown[i] = colour.red;
            continue;
        }
        shown[3 * i] = colour.red;
        shown[3 * i + 1] = colour.green;
        shown[3 * i + 2] = colour.blue;
    }
}

void TiffPixels::Show(
    const std::uint8_t* bytes, std::uint64_t first, std::size_t count, std::uint8_t* shown) const
{
    const std::size_t values = count * static_cast<std::size_t>(m_channels);
    switch (m_depth) {
    case ColorDepth::Bilevel:
        ShowBits(bytes, first, count, shown);
        break;
    case ColorDepth::Gray8:
    case ColorDepth::Rgb8:
        std::memcpy(shown, bytes, values);
        break;
    case ColorDepth::Palette8:
        ShowIndexes(bytes, count, shown);
        break;
    case ColorDepth::Gray16:
    case ColorDepth::Rgb16:
        ShowUpperBytes(bytes + (m_order == ByteOrder::Little ? 1 : 0), values, shown);
        break;
    }
    if (m_isInverted)
        Invert(shown, values);
}

void TiffPixels::TakeSamples(
    const std::uint8_t* bytes, std::uint64_t first, std::size_t count, std::uint16_t* samples) const
{
    const std::size_t values = count * SampleCount();
    const std::size_t low = m_order == ByteOrder::Little ? 0 : 1;
    const std::size_t bit = first % kPixelsPerByte;
    switch (m_depth) {
    case ColorDepth::Bilevel:
        for (std::size_t i = 0; i < values; ++i)
            samples[i] = bytes[(bit + i) / kPixelsPerByte] >> (7 - (bit + i) % kPixelsPerByte) & 1U;
        break;
    case ColorDepth::Gray8:
    case ColorDepth::Rgb8:
    case ColorDepth::Palette8:
        std::copy_n(bytes, values, samples);
        break;
    case ColorDepth::Gray16:
    case ColorDepth::Rgb16:
        for (std::size_t i = 0; i < values; ++i)
            samples[i] =
                static_cast<std::uint16_t>(bytes[2 * i + low] | bytes[2 * i + 1 - low] << 8);
        break;
    }
}

PixelSamples TiffPixels::Samples(const std::uint8_t* bytes, std::uint64_t column) const
{
    PixelSamples samples;
    samples.count = static_cast<int>(SampleCount());
    TakeSamples(bytes, column, 1, samples.values.data());
    return samples;
}

} // namespace vireo
