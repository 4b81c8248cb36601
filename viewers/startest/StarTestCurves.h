#pragma once

#include "viewers/controls/CurveSlots.h"
#include "viewers/startest/StarTestSweep.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace vireo {

/// The curves of a sweep, in the order in which their figures are told.
enum class StarTestField {
    XVibration,
    YVibration,
    XVibrationAverage,
    YVibrationAverage,
    ScanSpeed,
    WideLine,
    WideLineUnsmoothed,
    XLineWidth,
    YLineWidth,
};
std::span<const StarTestField> AllStarTestFields();

/// "x_vibration", as figures and tables name it.
std::string_view FieldName(StarTestField field);
std::span<const float> ValuesOf(const StarTestSweep& sweep, StarTestField field);
/// The lines that the figures of a curve are about: its evaluation range, for the speed all.
LineRange EvaluationRange(const StarTestSweep& sweep, StarTestField field);

/// Figures of some values; all 0 when there are none.
struct CurveFigures {
    double min = 0.0;
    double max = 0.0;
    double mean = 0.0;
    double rms = 0.0; ///< Square root of the mean square.
};
CurveFigures FiguresOf(std::span<const float> values);

/// The name of the one curve that is not in pixels.
inline constexpr std::string_view kScanSpeedName = "Scan Speed";

/// A curve as the plot shows it.
struct StarTestCurve {
    StarTestField field;
    std::string_view name;
    std::uint32_t colour; ///< 0x00BBGGRR.
    bool isVisible;       ///< At first.
    bool isDashed;
};

/// The curves that the plot of a sweep has, in the order of its slots: of an average record only
/// the mean and the standard deviation. `yCurves`: the Y vibration is visible at first.
std::vector<StarTestCurve> CurvesOf(const StarTestSweep& sweep, bool yCurves);

/// Curves that are looked at together.
struct StarTestView {
    std::string_view name;
    std::span<const std::string_view> curves; ///< By their names in the plot.
};
std::span<const StarTestView> StarTestViews();
/// Makes the curves of a view visible and hides the others. False, and nothing is changed, when
/// there is none of them.
bool ShowCurves(const StarTestView& view, CurveSlots& curves);

} // namespace vireo
