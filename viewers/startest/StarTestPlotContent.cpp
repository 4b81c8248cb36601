#include "viewers/startest/StarTestPlotContent.h"

#include "viewers/startest/StarTestCurves.h"
#include "viewers/startest/StarTestData.h"
#include "viewers/startest/StarTestText.h"

#include <algorithm>
#include <limits>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace vireo {

namespace {

/// The lines over which a curve is drawn: where it was worked out. Outside the array has zeros, or
/// widths that are not about their mean.
LineRange DrawnLines(const StarTestSweep& sweep, StarTestField field)
{
    // The array of the speed holds the deviation of an average record.
    if (sweep.m_bAvgResult)
        field = StarTestField::XVibrationAverage;
    LineRange lines = EvaluationRange(sweep, field);
    // The average of X ends a line before its range does.
    if (field == StarTestField::XVibrationAverage && lines.end > lines.begin)
        --lines.end;
    return lines;
}

std::vector<double> DrawnValues(const StarTestSweep& sweep, StarTestField field)
{
    const std::span<const float> values = ValuesOf(sweep, field);
    const LineRange lines = DrawnLines(sweep, field);
    std::vector<double> drawn(values.size(), std::numeric_limits<double>::quiet_NaN());
    for (std::size_t i = lines.begin; i < lines.end; ++i)
        drawn[i] = values[i];
    return drawn;
}

/// Below so many lines in view the line numbers are the better scale.
bool HasCentimetreScale(const ProfileView& view)
{
    constexpr double kFewestLines = 100.0;
    return view.length > kFewestLines;
}

/// Everything is in pixels but the speed, which has a unit of its own.
bool HasPixels(const CurveSlots& curves)
{
    return std::ranges::any_of(curves.All(),
        [](const CurveSlot& slot) { return slot.IsShown() && slot.name != kScanSpeedName; });
}

bool IsVisible(const CurveSlots& curves, std::string_view name)
{
    return std::ranges::any_of(curves.All(),
        [name](const CurveSlot& slot) { return slot.IsShown() && slot.name == name; });
}

std::vector<LimitLevel> LevelsOfSweep(
    const StarTestData& data, const CurveSlots& curves, std::span<const Limit> limits)
{
    std::vector<LimitLevel> levels;
    const StarTestSweep* const sweep = data.SelectedSweep();
    if (!sweep || limits.empty())
        return levels;
    for (const StarTestCurve& curve : CurvesOf(*sweep, data.m_bYCurves)) {
        if (!IsVisible(curves, curve.name))
            continue;
        const std::string figure =
            "sweeps[*].curves." + std::string(FieldName(curve.field)) + ".min|max|mean";
        for (LimitLevel& level :
            LevelsOf(limits, figure, static_cast<std::int64_t>(data.m_iSelectedIndex))) {
            level.label.insert(0, std::string(curve.name) + ' ');
            levels.push_back(std::move(level));
        }
    }
    return levels;
}

} // namespace

void FillCurves(const StarTestData& data, CurveSlots& curves)
{
    curves.Clear();
    const StarTestSweep* const sweep = data.SelectedSweep();
    if (!sweep)
        return;
    std::size_t slot = 0;
    for (const StarTestCurve& curve : CurvesOf(*sweep, data.m_bYCurves)) {
        curves.SetCurve(
            slot, std::string(curve.name), curve.colour, DrawnValues(*sweep, curve.field));
        curves.At(slot).isVisible = curve.isVisible;
        curves.At(slot).isDashed = curve.isDashed;
        ++slot;
    }
}

std::vector<std::int32_t> MarkersOf(const StarTestData& data)
{
    std::vector<std::int32_t> markers;
    if (const StarTestSweep* const sweep = data.SelectedSweep())
        for (const StarTestPoint& point : sweep->m_Points)
            if (point.m_bNotPassed)
                markers.push_back(point.m_iValue);
    return markers;
}

void DescribePlot(const StarTestData& data, CurvePlotContent& plot, std::span<const Limit> limits)
{
    if (plot.curves)
        plot.limits = LevelsOfSweep(data, *plot.curves, limits);
    plot.title = SweepTitle(data);
    plot.valueUnit = plot.curves && HasPixels(*plot.curves) ? "px" : "";
    plot.pointName = "line";
    constexpr int kParts = 4; // Between five ticks.
    const bool hasScale = HasCentimetreScale(plot.view);
    plot.pointAxisRow = hasScale ? 1 : 0;
    plot.gridParts = hasScale ? kParts : 0;
}

} // namespace vireo
