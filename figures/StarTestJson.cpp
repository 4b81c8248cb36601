#include "figures/StarTestJson.h"

#include "figures/Analysers.h"
#include "figures/Json.h"
#include "figures/Subject.h"
#include "platform/Text.h"
#include "viewers/startest/StarTestCurves.h"
#include "viewers/startest/StarTestData.h"

namespace vireo {

std::string OpenStarTest(
    const Subject& subject, std::optional<std::int64_t> sweep, StarTestData& data)
{
    if (const StarTestResult result = data.Read(subject.path); result != StarTestResult::Ok)
        return data.DescribeFailure(result);
    if (sweep && *sweep >= std::ssize(data.m_sweeps))
        return Format("There is no sweep %lld: the file has %lld, counted from 0",
            static_cast<long long>(*sweep), static_cast<long long>(std::ssize(data.m_sweeps)));
    if (sweep)
        data.Select(*sweep);
    return {};
}

namespace {

Json CurveToJson(const StarTestSweep& sweep, StarTestField field, bool withValues)
{
    const std::span<const float> values = ValuesOf(sweep, field);
    const LineRange lines = EvaluationRange(sweep, field);
    const CurveFigures figures = FiguresOf(values.subspan(lines.begin, lines.Count()));
    Json curve;
    curve["min"] = figures.min;
    curve["max"] = figures.max;
    curve["mean"] = figures.mean;
    curve["rms"] = figures.rms;
    if (withValues)
        curve["values"] = values;
    return curve;
}

Json SweepToJson(const StarTestSweep& sweep, bool withValues)
{
    Json object;
    object["line_count"] = sweep.LineCount();
    object["color"] = sweep.m_bColour ? 1 : 0;
    object["scan_speed_setting"] = sweep.m_iScanSpeed;
    object["scan_width"] = sweep.m_dScanWidth;
    object["resolution"] = sweep.m_iResolution;
    object["xvib_start"] = sweep.m_iXVib_Start;
    object["xvib_end"] = sweep.m_iXVib_End;
    object["yvib_start"] = sweep.m_iYVib_Start;
    object["yvib_end"] = sweep.m_iYVib_End;
    object["wideline_start"] = sweep.m_iWideLine_Start;
    object["wideline_end"] = sweep.m_iWideLine_End;
    object["scan_speed_index"] = sweep.m_iScanSpeedIndex;
    object["scan_speed_width"] = sweep.m_iScanSpeedWidth;
    object["scan_speed_byte_per_pix"] = sweep.m_iScanSpeedBytePerPix;
    object["avg_result"] = sweep.m_bAvgResult ? 1 : 0;
    Json& curves = object["curves"] = Json::object();
    for (const StarTestField field : AllStarTestFields())
        curves[std::string(FieldName(field))] = CurveToJson(sweep, field, withValues);
    return object;
}

} // namespace

FiguresResult AnalyseStarTest(const Subject& subject, const AnalyseSettings& settings)
{
    StarTestData data;
    if (std::string failure = OpenStarTest(subject, std::nullopt, data); !failure.empty())
        return {{}, std::move(failure)};
    Json object = BeginObject(subject);
    object["version"] = data.m_iVersion;
    object["sweep_count"] = data.m_sweeps.size();
    object["repeat"] = data.m_iRepeat;
    object["selected_index"] = data.m_iSelectedIndex;
    Json& sweeps = object["sweeps"] = Json::array();
    for (const StarTestSweep& sweep : data.m_sweeps)
        sweeps.push_back(SweepToJson(sweep, settings.arrays));
    return {std::move(object), {}};
}

} // namespace vireo
