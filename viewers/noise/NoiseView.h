#pragma once

#include "viewers/controls/ProfileView.h"

#include <cstdint>

namespace vireo {

/// The stretch of a noise line in view: length / zoom pixels about a centre. Plain arithmetic in
/// whole pixels; `length` is the line's throughout.
struct NoiseView {
    /// A click does not zoom in further when fewer pixels than this would be left.
    static constexpr std::int64_t kFewestPixels = 4;

    std::int64_t centre = 0; ///< Index of the pixel in the middle of the plot.
    int zoom = 1;

    static NoiseView Whole(std::int64_t length) { return {length / 2, 1}; }

    /// The pixels in view: First <= i < End. Two halves of whole pixels: an odd line's last pixel
    /// is not among them at zoom 1.
    std::int64_t First(std::int64_t length) const;
    std::int64_t End(std::int64_t length) const;
    ProfileView Stretch(std::int64_t length) const;

    /// Left click `x` from the left of a plot of `width`: the pixel there comes to the middle, at
    /// twice the zoom.
    NoiseView ZoomedIn(double x, double width, std::int64_t length) const;
    /// Right click: half the zoom, down to the whole line.
    NoiseView ZoomedOut(std::int64_t length) const;
    NoiseView MovedBy(std::int64_t pixels, std::int64_t length) const;
    /// Twice or half the zoom with a pixel staying where it is on the screen.
    NoiseView ZoomedAt(double pixel, bool in, std::int64_t length) const;

    // The scroll bar: positions from 0 to length - Page.
    std::int64_t Page(std::int64_t length) const;
    std::int64_t ScrollPosition(std::int64_t length) const;
    NoiseView ScrolledTo(std::int64_t position, std::int64_t length) const;

    bool operator==(const NoiseView&) const = default;

private:
    bool CanZoomIn(std::int64_t length) const;
    NoiseView Clamped(std::int64_t length) const;
};

} // namespace vireo
