#pragma once

#include "viewers/controls/CurvePlot.h"

#include <cstdint>
#include <span>
#include <vector>

namespace vireo {

class StarTestData;

/// Everything that a star-test plot shows: the selected sweep's curves, and what stands about them.
/// Data and curves are not owned; without data an empty plot is drawn.
struct StarTestPlotContent {
    const StarTestData* data = nullptr;
    CurvePlotContent plot;
    std::vector<std::int32_t> markers; ///< Lines of points that have not passed.
};

/// The curve slots of the selected sweep, to be summarised; and the marks of its points. A curve
/// has gaps outside of the lines that it was worked out for.
void FillCurves(const StarTestData& data, CurveSlots& curves);
std::vector<std::int32_t> MarkersOf(const StarTestData& data);
/// The texts of the plot that depend on the selected sweep and on the stretch in view, and the
/// limits of the visible curves' lowest, highest and mean values.
void DescribePlot(
    const StarTestData& data, CurvePlotContent& plot, std::span<const Limit> limits = {});

} // namespace vireo
