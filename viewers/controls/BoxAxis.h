#pragma once

#include "viewers/controls/PictureView.h"
#include "viewers/controls/ReducedPicture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vireo {

/// One axis of a drawing below zoom 1: drawn pixel n, counted from the picture's corner, stands for
/// the source pixels Edge(n) <= i < Edge(n + 1).
struct BoxAxis {
    BoxAxis(const PictureView& view, const PictureAxis& axis, const ReducedSource& source,
        std::int64_t sourceLength, std::int64_t drawnLength, std::int64_t skipped = 0)
        : length(sourceLength),
          ratio(1.0 / (view.zoom * static_cast<double>(source.Reduction()))),
          first(std::max<std::int64_t>(view.FirstDrawn(axis), 0) + skipped)
    {
        if (const double whole = std::round(ratio);
            std::abs(ratio - whole) < kRatioRounding * whole)
            ratio = whole;
        const auto all = static_cast<std::int64_t>(std::ceil(static_cast<double>(length) / ratio));
        total = std::max<std::int64_t>(all, 0);
        count = std::clamp<std::int64_t>(total - first, 0, drawnLength);
    }

    std::int64_t Edge(std::int64_t drawn) const
    {
        return std::min(
            static_cast<std::int64_t>(std::floor(static_cast<double>(drawn) * ratio)), length);
    }

    std::int64_t length; ///< Source pixels in all.
    double ratio;        ///< Source pixels a drawn pixel.
    std::int64_t first;  ///< First drawn pixel in view, behind those that are skipped.
    std::int64_t count;  ///< Drawn pixels in view.
    std::int64_t total;  ///< Drawn pixels of the whole picture.
};

} // namespace vireo
