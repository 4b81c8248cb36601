#include "imagefile/CDifferencingFilter.h"

#include <array>
#include <cstring>

namespace vireo {

namespace {

template <typename Sample>
Sample Load(const std::uint8_t* place)
{
    Sample sample;
    std::memcpy(&sample, place, sizeof sample);
    return sample;
}

/// From the end to the start, so that every sample still meets its unchanged neighbour. A block is
/// loaded before it is changed; the compiler makes wide instructions of it.
template <typename Sample>
void Subtract(std::uint8_t* row, std::size_t samples, std::size_t stride)
{
    constexpr std::size_t kBlock = 32 / sizeof(Sample);
    using Block = std::array<Sample, kBlock>;
    const std::size_t gap = stride * sizeof(Sample);
    std::size_t end = samples;
    for (; end >= kBlock + stride; end -= kBlock) {
        std::uint8_t* const place = row + (end - kBlock) * sizeof(Sample);
        Block block = Load<Block>(place);
        const Block before = Load<Block>(place - gap);
        for (std::size_t i = 0; i < kBlock; ++i)
            block[i] = static_cast<Sample>(block[i] - before[i]);
        std::memcpy(place, &block, sizeof block);
    }
    for (; end > stride; --end) {
        std::uint8_t* const place = row + (end - 1) * sizeof(Sample);
        const auto rest = static_cast<Sample>(Load<Sample>(place) - Load<Sample>(place - gap));
        std::memcpy(place, &rest, sizeof rest);
    }
}

} // namespace

void TakeDifferences(ColorDepth depth, std::uint8_t* row, std::size_t width)
{
    switch (depth) {
    case ColorDepth::Bilevel:
        break;
    case ColorDepth::Gray8:
    case ColorDepth::Palette8:
        Subtract<std::uint8_t>(row, width, 1);
        break;
    case ColorDepth::Rgb8:
        Subtract<std::uint8_t>(row, 3 * width, 3);
        break;
    case ColorDepth::Gray16:
        Subtract<std::uint16_t>(row, width, 1);
        break;
    case ColorDepth::Rgb16:
        Subtract<std::uint16_t>(row, 3 * width, 3);
        break;
    }
}

ImageResult CDifferencingFilter::BeginImage(ColorDepth depth, std::uint32_t width,
    std::uint32_t height, std::uint32_t resolution, std::uint32_t reserved1,
    std::uint32_t reserved2)
{
    if (depth == ColorDepth::Bilevel || depth == ColorDepth::Palette8 || depth > ColorDepth::Rgb16)
        return ImageResult::InvalidTiffArguments;
    m_depth = depth;
    m_width = width;
    return CFilterBase::BeginImage(depth, width, height, resolution, reserved1, reserved2);
}

ImageResult CDifferencingFilter::LineDone()
{
    TakeDifferences(m_depth, m_row, m_width);
    return CFilterBase::LineDone();
}

} // namespace vireo
