#include "viewers/controls/PictureView.h"

#include "platform/Text.h"

#include <algorithm>
#include <cmath>

namespace vireo {

namespace {

/// Toward zero. Whole zooms divide as whole numbers, which is exact for any length.
std::int64_t Divide(std::int64_t viewPixels, double zoom)
{
    if (zoom >= 1.0)
        return viewPixels / static_cast<std::int64_t>(zoom);
    return static_cast<std::int64_t>(static_cast<double>(viewPixels) / zoom);
}

} // namespace

std::int64_t PictureAxis::Shown(double zoom) const
{
    return Divide(view, zoom);
}

std::int64_t PictureAxis::Half(double zoom) const
{
    return Divide(view, 2.0 * zoom);
}

void PictureAxis::Clamp(double zoom)
{
    const std::int64_t half = Half(zoom);
    centre = std::max(std::min(centre, picture - half), half);
}

std::int64_t PictureAxis::ScrollPage(double zoom) const
{
    if (picture <= 0)
        return kScrollRange;
    return std::min(Shown(zoom) * kScrollRange / picture, kScrollRange);
}

std::int64_t PictureAxis::ScrollPosition(double zoom) const
{
    return picture > 0 ? First(zoom) * kScrollRange / picture : 0;
}

std::int64_t PictureAxis::StepOf(PictureStep step, double zoom) const
{
    const std::int64_t page = Shown(zoom);
    const std::int64_t line = std::max<std::int64_t>(page / 10, 1);
    switch (step) {
    case PictureStep::LineBack:
        return -line;
    case PictureStep::LineForward:
        return line;
    case PictureStep::PageBack:
        return -page;
    case PictureStep::PageForward:
        break;
    }
    return page;
}

std::int64_t PictureAxis::StepTo(std::int64_t position, double zoom) const
{
    return picture * position / kScrollRange - First(zoom);
}

PictureView PictureView::Start(std::int64_t pictureWidth, std::int64_t pictureHeight,
    std::int64_t viewWidth, std::int64_t viewHeight)
{
    PictureView view;
    view.x = {pictureWidth, viewWidth, 0};
    view.y = {pictureHeight, viewHeight, 0};
    return view.OneToOne();
}

PictureView PictureView::Clamped() const
{
    PictureView view = *this;
    view.x.Clamp(zoom);
    view.y.Clamp(zoom);
    return view;
}

PictureView PictureView::OneToOne() const
{
    PictureView view = *this;
    view.zoom = 1.0;
    view.x.centre = x.picture / 2;
    view.y.centre = y.picture / 3;
    return view.Clamped();
}

double PictureView::FittingZoom() const
{
    if (x.picture <= 0 || y.picture <= 0 || x.view <= 0 || y.view <= 0)
        return 1.0;
    const double fitting = std::min(static_cast<double>(x.view) / static_cast<double>(x.picture),
        static_cast<double>(y.view) / static_cast<double>(y.picture));
    const double smallest =
        static_cast<double>(std::max(x.view, y.view)) / static_cast<double>(kMostShown);
    return fitting >= 1.0 ? std::min(std::floor(fitting), kLargestZoom)
                          : std::max(fitting, smallest);
}

PictureView PictureView::Fitted() const
{
    PictureView view = *this;
    view.zoom = FittingZoom();
    view.x.centre = x.picture / 2;
    view.y.centre = y.picture / 2;
    return view.Clamped();
}

PictureView PictureView::Resized(std::int64_t viewWidth, std::int64_t viewHeight) const
{
    PictureView view = *this;
    view.x.view = viewWidth;
    view.y.view = viewHeight;
    return view.Clamped();
}

namespace {

/// The steps of the zoom and, below 1, of its inverse: 1, 2, 3, 4, 6, 8, 12 ...
double StepAbove(double step)
{
    if (step == 1.0)
        return 2.0;
    int exponent = 0;
    const bool isPowerOfTwo = std::frexp(step, &exponent) == 0.5;
    return isPowerOfTwo ? step / 2.0 * 3.0 : step / 3.0 * 4.0;
}

/// The step next to any value of at least 1; the inverse of a step need not be one exactly.
double StepNextTo(double value, bool above)
{
    constexpr double kSame = 1e-9;
    double below = 1.0;
    double step = 1.0;
    while (step < value * (1.0 - kSame)) {
        below = step;
        step = StepAbove(step);
    }
    if (!above)
        return below;
    return step > value * (1.0 + kSame) ? step : StepAbove(step);
}

} // namespace

double PictureView::NextZoom(bool in) const
{
    if (zoom > 1.0 || (zoom == 1.0 && in))
        return std::min(StepNextTo(zoom, in), kLargestZoom);
    const double next = 1.0 / StepNextTo(1.0 / zoom, !in);
    return in ? next : std::max(next, std::min(FittingZoom(), zoom));
}

PictureView PictureView::ZoomedIn(std::int64_t viewX, std::int64_t viewY) const
{
    PictureView view = *this;
    view.x.centre -= Divide(x.view / 2 - viewX, zoom);
    view.y.centre -= Divide(y.view / 2 - viewY, zoom);
    view.zoom = zoom < 1.0 ? NextZoom(true) : std::min(zoom + 1.0, kLargestZoom);
    return view.Clamped();
}

PictureView PictureView::ZoomedOut() const
{
    PictureView view = *this;
    if (zoom > 1.0)
        view.zoom = zoom - 1.0;
    else if (zoom < 1.0)
        view.zoom = NextZoom(false);
    return view.Clamped();
}

PictureView PictureView::ZoomedAt(std::int64_t viewX, std::int64_t viewY, double newZoom) const
{
    PictureView view = *this;
    view.zoom = newZoom;
    // The view then starts so that the pixel lies as far from its start as the point does.
    view.x.centre = PixelAtX(viewX) - Divide(viewX, newZoom) + x.Half(newZoom);
    view.y.centre = PixelAtY(viewY) - Divide(viewY, newZoom) + y.Half(newZoom);
    return view.Clamped();
}

PictureView PictureView::MovedBy(std::int64_t pixelsX, std::int64_t pixelsY) const
{
    PictureView view = *this;
    view.x.centre += pixelsX;
    view.y.centre += pixelsY;
    return view.Clamped();
}

std::int64_t PictureView::FirstDrawn(const PictureAxis& axis) const
{
    const std::int64_t first = axis.First(zoom);
    if (zoom >= 1.0)
        return first;
    return static_cast<std::int64_t>(std::floor(static_cast<double>(first) * zoom));
}

double PictureView::PlaceOf(const PictureAxis& axis, std::int64_t pixel) const
{
    if (zoom >= 1.0)
        return static_cast<double>(pixel - axis.First(zoom)) * zoom;
    return static_cast<double>(pixel) * zoom - static_cast<double>(FirstDrawn(axis));
}

namespace {

/// Shortens a view to a shorter picture; gives how far that begins behind its start.
std::int64_t PlaceAxis(PictureAxis& axis, double zoom)
{
    constexpr double kRounding = 1e-9; // A fitted picture may be longer by so much.
    const auto drawn =
        static_cast<std::int64_t>(std::ceil(static_cast<double>(axis.picture) * zoom - kRounding));
    if (drawn >= axis.view)
        return 0;
    const std::int64_t start = (axis.view - drawn) / 2;
    axis.view = drawn;
    axis.centre = axis.Half(zoom);
    return start;
}

} // namespace

PlacedPicture PictureView::Placed() const
{
    PlacedPicture placed{*this};
    placed.left = PlaceAxis(placed.view.x, zoom);
    placed.top = PlaceAxis(placed.view.y, zoom);
    return placed;
}

std::int64_t PictureView::PixelAt(const PictureAxis& axis, std::int64_t at) const
{
    if (zoom >= 1.0)
        return axis.First(zoom) + Divide(at, zoom);
    return static_cast<std::int64_t>(std::floor(static_cast<double>(FirstDrawn(axis) + at) / zoom));
}

std::string ZoomText(double zoom)
{
    return zoom >= 1.0 ? Format("Zoom %.0f:1", zoom) : Format("Zoom 1:%.4g", 1.0 / zoom);
}

} // namespace vireo
