#include "figures/TonalJson.h"

#include "figures/Analysers.h"
#include "figures/Json.h"
#include "figures/Subject.h"
#include "viewers/tonal/TonalReport.h"
#include "viewers/tonal/TonalResolutionData.h"

namespace vireo {

namespace {

Json FitValues(const TonalResolutionData& data, double LineFit::*value)
{
    Json values = Json::array();
    for (const LineFit& fit : data.m_fit)
        values.push_back(fit.*value);
    return values;
}

void AddIdentity(Json& object, const TonalResolutionData& data)
{
    object["version"] = data.m_iVersion;
    object["scanner_name"] = FileText(data.m_ScannerName);
    object["date"] = FileText(data.m_Date);
    object["time"] = FileText(data.m_Time);
    object["serial_no"] = FileText(data.m_SerialNo);
    object["chassis_no"] = FileText(data.m_ChassisNo);
    object["firmware_build"] = FileText(data.m_FirmwareBuild);
    object["it8_ref_file"] = FileText(data.m_IT8RefFile);
    object["gamma_slope_limit"] = data.m_iGammaSlopeLimit;
    object["corrected_on_load"] = data.IsCorrected();
}

void AddFigures(Json& object, const TonalResolutionData& data)
{
    object["it8_dynamic_range"] = data.m_dIT8DynamicRange;
    object["scanner_dynamic_range"] = data.m_dScannerDynamicRange;
    object["correlation"] = FitValues(data, &LineFit::correlation);
    object["slope"] = FitValues(data, &LineFit::slope);
    object["offset"] = FitValues(data, &LineFit::offset);
    object["bit_depth_light"] = data.m_dBitDepthLight;
    object["bit_depth_dark"] = data.m_dBitDepthDark;
    object["max_light_deviation"] = data.m_dMaxLightDeviation;
    object["max_dark_deviation"] = data.m_dMaxDarkDeviation;
    object["index_max_dynamic_range"] = data.m_iIndexMaxDynamicRange;
    object["index_min_dynamic_range"] = data.m_iIndexMinDynamicRange;
    Json& index = object["bit_depth_index"];
    index["light"] = data.m_iBitDepthLightIndex;
    index["dark"] = data.m_iBitDepthDarkIndex;
}

Json PatchOf(const TonalPatch& patch)
{
    Json object;
    object["L"] = patch.lightness;
    object["n"] = patch.count;
    object["sum_r"] = patch.sum[TonalRed];
    object["sum_g"] = patch.sum[TonalGreen];
    object["sum_b"] = patch.sum[TonalBlue];
    object["sum_rr"] = patch.sumOfSquares[TonalRed];
    object["sum_gg"] = patch.sumOfSquares[TonalGreen];
    object["sum_bb"] = patch.sumOfSquares[TonalBlue];
    object["density"] = patch.density;
    object["r"] = patch.scan[TonalRed];
    object["g"] = patch.scan[TonalGreen];
    object["b"] = patch.scan[TonalBlue];
    return object;
}

} // namespace

FiguresResult AnalyseTonal(const Subject& subject, const AnalyseSettings&)
{
    TonalResolutionData data;
    if (const TonalResult result = data.Read(subject.path); result != TonalResult::Ok)
        return {{}, data.DescribeFailure(result)};
    Json object = BeginObject(subject);
    AddIdentity(object, data);
    AddFigures(object, data);
    Json& patches = object["patches"] = Json::array();
    for (const TonalPatch& patch : data.m_patches)
        patches.push_back(PatchOf(patch));
    object["report"] = TonalReport(data);
    return {std::move(object), {}};
}

} // namespace vireo
