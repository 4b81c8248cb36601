#include "viewers/controls/HorizontalZoom.h"

#include <algorithm>
#include <cmath>

namespace vireo {

namespace {

double LargestFactor(std::int64_t points)
{
    return std::max(static_cast<double>(points) / HorizontalZoom::kFewestPoints, 1.0);
}

} // namespace

/// A view with this middle and factor, moved to lie within the points.
HorizontalZoom HorizontalZoom::About(double middle, double newFactor) const
{
    HorizontalZoom zoom{0, visible, std::clamp(newFactor, 1.0, LargestFactor(visible))};
    const double half = zoom.Span() / 2.0;
    const double last = std::max(static_cast<double>(visible) - half, half);
    // At factor 1 the middle of an odd number of points is the one below, as in Whole().
    zoom.centre = zoom.factor == 1.0 ? visible / 2 : std::llround(std::clamp(middle, half, last));
    return zoom;
}

HorizontalZoom HorizontalZoom::ZoomedAt(double point, double times) const
{
    // The limits of the factor come first: at a limit the point would otherwise drift.
    const double newFactor = std::clamp(factor * times, 1.0, LargestFactor(visible));
    const double distance = static_cast<double>(centre) - point;
    return About(point + distance * factor / newFactor, newFactor);
}

HorizontalZoom HorizontalZoom::CentredOn(double point, double times) const
{
    return About(point, factor * times);
}

HorizontalZoom HorizontalZoom::MovedBy(double points) const
{
    return About(static_cast<double>(centre) + points, factor);
}

HorizontalZoom HorizontalZoom::Over(std::int64_t points) const
{
    if (points == visible)
        return *this;
    const HorizontalZoom all = Whole(points);
    return factor == 1.0 ? all : all.About(static_cast<double>(centre), all.Span() / Span());
}

std::int64_t HorizontalZoom::PointAt(int x, int width) const
{
    const double fromMiddle = x - static_cast<double>(width) / 2.0;
    const double plotWidth = std::max(width - 2 * (width / 10), 1);
    return std::llround(fromMiddle * Span() / plotWidth) + centre;
}

} // namespace vireo
