#include "viewers/controls/BoxAxis.h"
#include "viewers/controls/ReducedPicture.h"

#include <algorithm>
#include <vector>

namespace vireo {

void DrawSampled(const ReducedSource& source, const PictureView& view, const PixelTarget& target,
    std::int64_t top)
{
    const BoxAxis x(view, view.x, source, source.Width(), target.width);
    const BoxAxis y(view, view.y, source, source.Height(), target.height, top);
    FillWhite(target, y.count, x.count);
    if (x.count == 0 || y.count == 0)
        return;
    const ChannelLayout layout = source.Layout();
    const std::int64_t left = x.Edge(x.first);
    const std::int64_t width = std::min(x.Edge(x.first + x.count - 1) + 1, source.Width()) - left;
    std::vector<std::int64_t> offsets;
    for (std::int64_t i = 0; i < x.count; ++i)
        offsets.push_back((x.Edge(x.first + i) - left) * layout.pixelStep);
    std::vector<std::uint8_t> pixels;
    if (!source.level)
        pixels.resize(static_cast<std::size_t>(width * source.rows->Channels()));
    for (std::int64_t row = 0; row < y.count; ++row) {
        std::uint32_t* const out = target.Row(row);
        const std::int64_t at = y.Edge(y.first + row);
        if (source.level && at >= source.rowsDone) {
            std::fill_n(out, x.count, kWhitePixel);
            continue;
        }
        const std::uint8_t* in = pixels.data();
        if (source.level)
            in = source.level->Row(at) + left;
        else
            source.rows->Read({left, at, width, 1}, pixels);
        for (std::int64_t i = 0; i < x.count; ++i)
            out[i] = PixelAt(in + offsets[static_cast<std::size_t>(i)], layout.channelStep);
    }
}

} // namespace vireo
