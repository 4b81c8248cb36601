#pragma once

#include "limits/LimitsFile.h"
#include "viewers/controls/AxisTicks.h"
#include "viewers/controls/ProfileView.h"
#include "viewers/tonal/TonalResolutionData.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

/// The three plots of a tonal resolution test, by their numbers.
enum class TonalView {
    BestFit = 0,    ///< Scan values over L* with their fitted lines.
    Difference = 1, ///< How far the scan values lie from these lines.
    DynamicRange = 2,
};
inline constexpr int kTonalViews = 3;

std::string_view TonalTitle(TonalView view);
/// What stands at the axis of values.
std::string_view TonalValueCaption(TonalView view);
/// What stands at the axis of L*, in all views.
inline constexpr std::string_view kTonalLightnessCaption = "L (Ref-file)";

/// What of a plot is shown, each switched on and off by a check box.
enum TonalFlag : std::size_t {
    TonalShowRed = TonalRed,
    TonalShowGreen = TonalGreen,
    TonalShowBlue = TonalBlue,
    TonalShowLines,   ///< The fitted lines.
    TonalShowCrosses, ///< The patches.
    TonalShowNames,   ///< Of the patches.
};
inline constexpr std::size_t kTonalFlags = 6;

/// Everything that a tonal resolution plot shows. The data are not owned; null, or a record that
/// was not loaded, draws an empty plot.
struct TonalPlotContent {
    const TonalResolutionData* data = nullptr;
    TonalView view = TonalView::BestFit;
    std::array<bool, kTonalFlags> flags{true, true, true, true, true, true};
    bool isLoading = false;
    std::optional<std::size_t> pointed; ///< The patch whose values are shown.
    std::span<const Limit> limits = {}; ///< Of the file's figures, see TonalLimitMarks. Not owned.

    bool HasData() const { return data && data->IsLoaded() && !isLoading; }
    bool Shows(std::size_t flag) const { return flags[flag]; }
    /// The channels drawn, in order; none in the view of the dynamic range, which is the target's.
    std::vector<std::size_t> Channels() const;
};

/// Where a drawing of a size has its plot, a tenth away from its edges, and the mapping: of L* as
/// pixels from 0 to 100, and of the view's values.
ProfileScale TonalScaleOf(TonalView view, int width, int height);

/// The places of the grid across the axis of values, with a text where it has room for one.
std::vector<AxisTick> TonalValueTicks(TonalView view, double plotHeight);

/// Where a patch stands in a view: its scan value, its difference from the fitted line, or its
/// density, which is that of all channels.
double TonalValueOf(
    const TonalResolutionData& data, TonalView view, std::size_t patch, std::size_t channel);

/// The patch nearest to a point's L*; nothing outside the plot.
std::optional<std::size_t> TonalPatchAt(
    const TonalPlotContent& content, const ProfileScale& scale, double x, double y);

/// Which patch the pointer is at and its values in a view, in one line.
std::string TonalPatchText(const TonalResolutionData& data, TonalView view, std::size_t patch);

/// The L* below which a patch's deviation counts for the dark.
double TonalDarkLightness();

/// Whether the fitted lines of these channels are one line as drawn in a view.
bool TonalLinesCoincide(const TonalResolutionData& data, TonalView view,
    const std::vector<std::size_t>& channels, const ProfileScale& scale);

} // namespace vireo
