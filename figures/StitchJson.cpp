#include "figures/StitchJson.h"

#include "figures/Analysers.h"
#include "figures/Json.h"
#include "figures/Subject.h"
#include "viewers/stitch/StitchData.h"

namespace vireo {

FiguresResult AnalyseStitch(const Subject& subject, const AnalyseSettings& settings)
{
    StitchData data;
    if (const StitchResult result = data.Read(subject.path); result != StitchResult::Ok)
        return {{}, data.DescribeFailure(result)};
    Json object = BeginObject(subject);
    object["width"] = data.m_iMemoryDC_Width;
    object["height"] = data.m_iMemoryDC_Height;
    object["resolution"] = data.m_iPhysicalResolution;
    object["mode"] = data.m_bRunLength ? "run-length" : "gray";
    object["data_length"] = data.m_iDataLength;
    object["missing"] = data.Missing();
    const auto digest = settings.hashes ? data.PictureSha256() : std::nullopt;
    object["picture_sha256"] = digest ? Json(*digest) : Json(nullptr);
    return {std::move(object), {}};
}

} // namespace vireo
