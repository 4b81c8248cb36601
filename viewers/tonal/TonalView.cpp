#include "viewers/tonal/TonalView.h"

#include "platform/Text.h"
#include "viewers/tonal/TonalFileText.h"

#include <algorithm>
#include <cmath>

namespace vireo {

namespace {

constexpr double kWhite = 100.0; ///< The L* at which the axis ends.

/// What makes one view's axis of values another than another's.
struct ValueAxis {
    std::string_view title;
    std::string_view caption;
    double low = 0.0;
    double high = 0.0;
    double step = 0.0; ///< Of the grid.
    int decimals = 0;
};

constexpr ValueAxis kAxes[kTonalViews] = {
    {"Linearity Best Fit", "R,G,B (Scan)", 0.0, 255.0, 50.0, 0},
    {"Linearity Difference", "dE (R,G,B Scan)", -10.0, 10.0, 1.0, 0},
    {"Dynamic range", "Density", 0.0, 5.0, 0.5, 1},
};

const ValueAxis& AxisOf(TonalView view)
{
    return kAxes[static_cast<std::size_t>(view)];
}

} // namespace

std::string_view TonalTitle(TonalView view)
{
    return AxisOf(view).title;
}

std::string_view TonalValueCaption(TonalView view)
{
    return AxisOf(view).caption;
}

std::vector<std::size_t> TonalPlotContent::Channels() const
{
    std::vector<std::size_t> channels;
    for (std::size_t channel = 0; channel < kTonalChannels; ++channel)
        if (view != TonalView::DynamicRange && Shows(channel))
            channels.push_back(channel);
    return channels;
}

ProfileScale TonalScaleOf(TonalView view, int width, int height)
{
    constexpr int kMarginPart = 10;
    const int left = width / kMarginPart;
    const int top = height / kMarginPart;
    ProfileScale scale;
    scale.view = {0.0, kWhite};
    scale.low = AxisOf(view).low;
    scale.high = AxisOf(view).high;
    scale.left = left;
    scale.top = top;
    scale.width = std::max(width - 2 * left, 1);
    scale.height = std::max(height - 2 * top, 1);
    return scale;
}

std::vector<AxisTick> TonalValueTicks(TonalView view, double plotHeight)
{
    constexpr double kRoomForText = 15.0;
    const ValueAxis& axis = AxisOf(view);
    const double room = axis.step * plotHeight / (axis.high - axis.low);
    // Texts at every, every second or every fifth place, so that 0 always has one.
    int every = 1;
    while (every * room < kRoomForText && every < 5)
        every = every == 1 ? 2 : 5;
    std::vector<AxisTick> ticks;
    const int last = static_cast<int>((axis.high - axis.low) / axis.step);
    for (int i = 0; i <= last; ++i) {
        // The last place is the axis' end, even where that is no whole step away.
        const double value = i == last ? axis.high : axis.low + i * axis.step;
        const bool hasText = i % every == 0 || i == last;
        ticks.push_back({value, hasText ? Format("%.*f", axis.decimals, value) : std::string()});
    }
    return ticks;
}

double TonalValueOf(
    const TonalResolutionData& data, TonalView view, std::size_t patch, std::size_t channel)
{
    switch (view) {
    case TonalView::BestFit:
        return data.m_patches[patch].scan[channel];
    case TonalView::Difference:
        return data.DeviationOf(data.m_patches[patch], channel);
    case TonalView::DynamicRange:
        break;
    }
    return data.m_patches[patch].density;
}

std::optional<std::size_t> TonalPatchAt(
    const TonalPlotContent& content, const ProfileScale& scale, double x, double y)
{
    if (!content.HasData() || !scale.Contains(x, y))
        return std::nullopt;
    const auto& patches = content.data->m_patches;
    const double lightness = scale.PixelAt(x);
    const auto away = [lightness](const TonalPatch& patch) {
        return std::fabs(patch.lightness - lightness);
    };
    const auto nearest = std::min_element(patches.begin(), patches.end(),
        [&](const TonalPatch& a, const TonalPatch& b) { return away(a) < away(b); });
    return static_cast<std::size_t>(nearest - patches.begin());
}

std::string TonalPatchText(const TonalResolutionData& data, TonalView view, std::size_t patch)
{
    const auto value = [&](std::size_t channel) {
        return TonalValueOf(data, view, patch, channel);
    };
    std::string text = TonalPatchName(patch) + Format("   L %.2f", data.m_patches[patch].lightness);
    if (view == TonalView::DynamicRange)
        return text + Format("   density %.2f", value(TonalRed));
    const char* const format = view == TonalView::BestFit ? "   R %.2f   G %.2f   B %.2f"
                                                          : "   dR %+.2f   dG %+.2f   dB %+.2f";
    return text + Format(format, value(TonalRed), value(TonalGreen), value(TonalBlue));
}

double TonalDarkLightness()
{
    return LightnessOfLinear(std::pow(10.0, -TonalResolutionData::kDarkDensity));
}

bool TonalLinesCoincide(const TonalResolutionData& data, TonalView view,
    const std::vector<std::size_t>& channels, const ProfileScale& scale)
{
    constexpr double kHalfUnit = 0.5;
    if (channels.size() < 2)
        return false;
    if (view == TonalView::Difference)
        return true;
    const LineFit& first = data.m_fit[channels.front()];
    return std::all_of(channels.begin(), channels.end(), [&](std::size_t channel) {
        const auto apart = [&](double lightness) {
            return std::fabs(
                scale.YAt(data.m_fit[channel].At(lightness)) - scale.YAt(first.At(lightness)));
        };
        return apart(0.0) <= kHalfUnit && apart(kWhite) <= kHalfUnit;
    });
}

} // namespace vireo
