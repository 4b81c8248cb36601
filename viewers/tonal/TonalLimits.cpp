#include "viewers/tonal/TonalLimits.h"

#include "viewers/tonal/TonalFormulas.h"

#include <string_view>

namespace vireo {

namespace {

std::vector<TonalLimitMark> DeviationMarks(std::span<const Limit> limits)
{
    struct Side {
        std::string_view figure;
        double fromLightness;
        double toLightness;
    };
    const Side sides[] = {
        {"max_dark_deviation", 0.0, TonalDarkLightness()},
        {"max_light_deviation", TonalDarkLightness(), 100.0},
    };
    std::vector<TonalLimitMark> marks;
    for (const Side& side : sides) {
        for (const LimitLevel& level : LevelsOf(limits, side.figure)) {
            marks.push_back({level, side.fromLightness, side.toLightness});
            // Deviations are magnitudes, the differences in the plot are not.
            marks.push_back(
                {{-level.value, "", !level.isLowest}, side.fromLightness, side.toLightness});
        }
    }
    return marks;
}

std::vector<TonalLimitMark> RangeMarks(
    const TonalResolutionData& data, std::span<const Limit> limits)
{
    const auto light = static_cast<std::size_t>(data.m_iIndexMinDynamicRange);
    const double from = DensityOfLightness(data.m_patches[light].lightness);
    std::vector<TonalLimitMark> marks;
    for (LimitLevel& level : LevelsOf(limits, "scanner_dynamic_range")) {
        level.value += from;
        marks.push_back({std::move(level)});
    }
    return marks;
}

} // namespace

std::vector<TonalLimitMark> TonalLimitMarks(
    const TonalResolutionData& data, TonalView view, std::span<const Limit> limits)
{
    switch (view) {
    case TonalView::Difference:
        return DeviationMarks(limits);
    case TonalView::DynamicRange:
        return RangeMarks(data, limits);
    case TonalView::BestFit:
        break;
    }
    return {};
}

} // namespace vireo
