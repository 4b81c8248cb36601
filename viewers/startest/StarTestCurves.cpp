#include "viewers/startest/StarTestCurves.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vireo {

namespace {

using Field = StarTestField;

constexpr Field kFields[] = {Field::XVibration, Field::YVibration, Field::XVibrationAverage,
    Field::YVibrationAverage, Field::ScanSpeed, Field::WideLine, Field::WideLineUnsmoothed,
    Field::XLineWidth, Field::YLineWidth};

LineRange AllLines(const StarTestSweep& sweep)
{
    return {0, static_cast<std::size_t>(sweep.LineCount())};
}

LineRange XLines(const StarTestSweep& sweep)
{
    return sweep.XRange();
}

LineRange YLines(const StarTestSweep& sweep)
{
    return sweep.YRange();
}

LineRange WideLines(const StarTestSweep& sweep)
{
    return sweep.WideLineRange();
}

struct FieldRow {
    std::string_view name;
    std::vector<float> StarTestSweep::*values;
    LineRange (*range)(const StarTestSweep& sweep);
};

/// By field.
constexpr FieldRow kRows[] = {
    {"x_vibration", &StarTestSweep::m_XVibration, XLines},
    {"y_vibration", &StarTestSweep::m_YVibration, YLines},
    {"x_vibration_average", &StarTestSweep::m_XVibrationAverage, XLines},
    {"y_vibration_average", &StarTestSweep::m_YVibrationAverage, YLines},
    {"scan_speed", &StarTestSweep::m_ScanSpeedCurve, AllLines},
    {"wide_line", &StarTestSweep::m_WideLine, WideLines},
    {"wide_line_unsmoothed", &StarTestSweep::m_WideLineUnsmoothed, WideLines},
    {"x_line_width", &StarTestSweep::m_XLineWidth, XLines},
    {"y_line_width", &StarTestSweep::m_YLineWidth, YLines},
};

const FieldRow& RowOf(StarTestField field)
{
    return kRows[static_cast<std::size_t>(field)];
}

} // namespace

std::span<const StarTestField> AllStarTestFields()
{
    return kFields;
}

std::string_view FieldName(StarTestField field)
{
    return RowOf(field).name;
}

std::span<const float> ValuesOf(const StarTestSweep& sweep, StarTestField field)
{
    return sweep.*RowOf(field).values;
}

LineRange EvaluationRange(const StarTestSweep& sweep, StarTestField field)
{
    return RowOf(field).range(sweep);
}

CurveFigures FiguresOf(std::span<const float> values)
{
    if (values.empty())
        return {};
    ValueRange<double> range;
    double sum = 0.0;
    double squares = 0.0;
    for (const double value : values) {
        range.Include(value);
        sum += value;
        squares += value * value;
    }
    if (range.IsEmpty()) // Nothing but values that are no numbers.
        range.lowest = range.highest = std::numeric_limits<double>::quiet_NaN();
    const auto count = static_cast<double>(values.size());
    return {range.lowest, range.highest, sum / count, std::sqrt(squares / count)};
}

std::vector<StarTestCurve> CurvesOf(const StarTestSweep& sweep, bool yCurves)
{
    if (sweep.m_bAvgResult)
        return {
            {Field::XVibrationAverage, "X-vib-avg", 0x646464, true, false},
            {Field::ScanSpeed, "Std Dev", 0x0000FF, true, false},
        };
    return {
        {Field::XVibration, "X-vib", 0xFF0000, true, false},
        {Field::XVibrationAverage, "X-vib-avg", 0x646464, true, false},
        {Field::YVibration, "Y-vib", 0x00FF00, yCurves, false},
        {Field::YVibrationAverage, "Y-vib-avg", 0x000000, yCurves, false},
        {Field::WideLine, "Wide Line", 0xFF00FF, false, true},
        {Field::WideLineUnsmoothed, "Wide L.Org", 0xFF7FFF, false, true},
        {Field::ScanSpeed, kScanSpeedName, 0x0000FF, false, false},
        {Field::XLineWidth, "X Line Width", 0xFF7F00, false, false},
        {Field::YLineWidth, "Y Line Width", 0xFF7F7F, false, false},
    };
}

namespace {

constexpr std::string_view kVibration[] = {"X-vib", "X-vib-avg", "Y-vib", "Y-vib-avg", "Std Dev"};
constexpr std::string_view kWideLine[] = {"Wide Line", "Wide L.Org"};
constexpr std::string_view kScanSpeed[] = {kScanSpeedName};
constexpr std::string_view kLineWidths[] = {"X Line Width", "Y Line Width"};
constexpr std::string_view kAllCurves[] = {"X-vib", "X-vib-avg", "Y-vib", "Y-vib-avg", "Wide Line",
    "Wide L.Org", kScanSpeedName, "Std Dev", "X Line Width", "Y Line Width"};

constexpr StarTestView kViews[] = {
    {"Vibration", kVibration},
    {"Wide Line", kWideLine},
    {"Scan Speed", kScanSpeed},
    {"Line Widths", kLineWidths},
    {"All Curves", kAllCurves},
};

} // namespace

std::span<const StarTestView> StarTestViews()
{
    return kViews;
}

bool ShowCurves(const StarTestView& view, CurveSlots& curves)
{
    CurveSlots::Visibility visible{};
    for (std::size_t i = 0; i < CurveSlots::kSlots; ++i)
        visible[i] = std::ranges::count(view.curves, curves.At(i).name) > 0;
    if (std::ranges::count(visible, true) == 0)
        return false;
    curves.SetVisible(visible);
    return true;
}

} // namespace vireo
