#include "viewers/noise/NoiseView.h"

#include <algorithm>
#include <cmath>

namespace vireo {

std::int64_t NoiseView::First(std::int64_t length) const
{
    return std::max<std::int64_t>(centre - length / zoom / 2, 0);
}

std::int64_t NoiseView::End(std::int64_t length) const
{
    return std::min(centre + length / zoom / 2, length);
}

ProfileView NoiseView::Stretch(std::int64_t length) const
{
    const std::int64_t first = First(length);
    return {static_cast<double>(first), static_cast<double>(std::max(End(length), first) - first)};
}

NoiseView NoiseView::Clamped(std::int64_t length) const
{
    const std::int64_t half = length / zoom / 2;
    return {std::clamp(centre, half, std::max(length - half, half)), zoom};
}

bool NoiseView::CanZoomIn(std::int64_t length) const
{
    return length / 2 / zoom >= kFewestPixels;
}

NoiseView NoiseView::ZoomedIn(double x, double width, std::int64_t length) const
{
    NoiseView view = *this;
    const double half = width / 2.0;
    if (half > 0.0)
        view.centre +=
            static_cast<std::int64_t>((x - half) / half * static_cast<double>(length / zoom) / 2.0);
    if (CanZoomIn(length))
        view.zoom *= 2;
    return view.Clamped(length);
}

NoiseView NoiseView::ZoomedOut(std::int64_t length) const
{
    if (zoom <= 3)
        return Whole(length);
    return NoiseView{centre, zoom / 2}.Clamped(length);
}

NoiseView NoiseView::MovedBy(std::int64_t pixels, std::int64_t length) const
{
    return NoiseView{centre + pixels, zoom}.Clamped(length);
}

NoiseView NoiseView::ZoomedAt(double pixel, bool in, std::int64_t length) const
{
    if (in && !CanZoomIn(length))
        return *this;
    if (!in && zoom <= 3)
        return Whole(length);
    const double distance = pixel - static_cast<double>(centre);
    const double moved = in ? distance / 2.0 : distance * 2.0;
    return NoiseView{std::llround(pixel - moved), in ? zoom * 2 : zoom / 2}.Clamped(length);
}

std::int64_t NoiseView::Page(std::int64_t length) const
{
    return std::max<std::int64_t>(length / zoom, 1);
}

std::int64_t NoiseView::ScrollPosition(std::int64_t length) const
{
    return centre - Page(length) / 2;
}

NoiseView NoiseView::ScrolledTo(std::int64_t position, std::int64_t length) const
{
    return {length / 2 / zoom + position, zoom};
}

} // namespace vireo
