#pragma once

#include "limits/LimitLevels.h"
#include "viewers/tonal/TonalView.h"

#include <span>
#include <vector>

namespace vireo {

/// A limit in a plot of a tonal resolution test, over the lightnesses that it is about.
struct TonalLimitMark {
    LimitLevel level; ///< In the view's values; without a label where another mark has it.
    double fromLightness = 0.0;
    double toLightness = 100.0;
};

/// The limits that a view can show: of the differences those of the largest deviations, on both
/// sides of 0, and of the densities those of the scanner's range, counted from its light limit on.
std::vector<TonalLimitMark> TonalLimitMarks(
    const TonalResolutionData& data, TonalView view, std::span<const Limit> limits);

} // namespace vireo
