#include "viewers/controls/PixelTarget.h"

#include <algorithm>

namespace vireo {

void FillWhite(const PixelTarget& target, std::int64_t firstRow, std::int64_t firstColumn)
{
    for (std::int64_t row = 0; row < target.height; ++row) {
        const std::int64_t from = row < firstRow ? std::min(firstColumn, target.width) : 0;
        std::fill(target.Row(row) + from, target.Row(row) + target.width, kWhitePixel);
    }
}

namespace {

void ConvertGray(
    const std::uint8_t* __restrict in, std::int64_t count, std::uint32_t* __restrict out)
{
    for (std::int64_t i = 0; i < count; ++i) {
        const std::uint32_t value = in[i];
        out[i] = kBlackPixel | value << 16 | value << 8 | value;
    }
}

} // namespace

void ConvertPixels(
    const std::uint8_t* in, const ChannelLayout& layout, std::int64_t count, std::uint32_t* out)
{
    if (layout.pixelStep == 1 && layout.channelStep == 0)
        return ConvertGray(in, count, out);
    for (std::int64_t i = 0; i < count; ++i)
        out[i] = PixelAt(in + i * layout.pixelStep, layout.channelStep);
}

} // namespace vireo
