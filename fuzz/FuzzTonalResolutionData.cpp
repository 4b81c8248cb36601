#include "fuzz/FuzzInput.h"
#include "viewers/tonal/TonalFileText.h"
#include "viewers/tonal/TonalReport.h"
#include "viewers/tonal/TonalResolutionData.h"

#include <cmath>

namespace vireo {

namespace {

constexpr int kLastPatch = TonalResolutionData::kPatches - 1;

void CheckFigures(const TonalResolutionData& data)
{
    for (const TonalPatch& patch : data.m_patches) {
        Require(std::isfinite(patch.lightness) && std::isfinite(patch.density));
        for (const double scan : patch.scan)
            Require(std::isfinite(scan));
    }
    for (const LineFit& fit : data.m_fit)
        Require(std::isfinite(fit.slope) && std::isfinite(fit.offset)
            && std::isfinite(fit.correlation));
    for (const double figure : {data.m_dIT8DynamicRange, data.m_dScannerDynamicRange,
             data.m_dMaxLightDeviation, data.m_dMaxDarkDeviation})
        Require(std::isfinite(figure));
    Require(data.m_iIndexMinDynamicRange >= 0 && data.m_iIndexMinDynamicRange <= kLastPatch);
    Require(data.m_iIndexMaxDynamicRange >= 0 && data.m_iIndexMaxDynamicRange <= kLastPatch);
}

} // namespace

} // namespace vireo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace vireo;
    TonalResolutionData data;
    const TonalResult result = data.Read(InputFile({bytes, size}));
    Require(data.DescribeFailure(result).empty() == (result == TonalResult::Ok));
    Require(data.IsLoaded() == (result == TonalResult::Ok));
    if (!data.IsLoaded())
        return 0;
    CheckFigures(data);
    Require(!TonalReport(data).empty() && !TonalPatchTable(data).empty());
    // What would be written can be read again.
    TonalResolutionData again;
    Require(ParseTonalText(FormatTonalText(data), again));
    Require(again.m_iVersion == data.m_iVersion);
    for (std::size_t i = 0; i < data.m_patches.size(); ++i)
        Require(again.m_patches[i].count == data.m_patches[i].count
            && again.m_patches[i].sum == data.m_patches[i].sum
            && again.m_patches[i].sumOfSquares == data.m_patches[i].sumOfSquares);
    return 0;
}
