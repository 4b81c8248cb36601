#include "figures/Analysers.h"

#include "figures/HeaderJson.h"
#include "figures/Json.h"
#include "figures/KitbagJson.h"
#include "figures/NoiseJson.h"
#include "figures/OscilloscopeJson.h"
#include "figures/StarTestJson.h"
#include "figures/StitchJson.h"
#include "figures/Subject.h"
#include "figures/TiffJson.h"
#include "figures/TonalJson.h"

namespace vireo {

namespace {

FiguresResult AnalysePlain(const Subject& subject, const AnalyseSettings&)
{
    return DescribeHeaderAndLength(subject);
}

FiguresResult AnalyseUnknown(const Subject& subject, const AnalyseSettings&)
{
    return {BeginObject(subject), kUnknownKind};
}

struct Analyser {
    FileKind kind;
    FiguresResult (*analyse)(const Subject&, const AnalyseSettings&);
};

constexpr Analyser kAnalysers[] = {
    {FileKind::Oscilloscope, AnalyseOscilloscope},
    {FileKind::Mtf, AnalyseOscilloscope},
    {FileKind::Noise, AnalyseNoise},
    {FileKind::Kitbag, AnalyseKitbag},
    {FileKind::TonalResolution, AnalyseTonal},
    {FileKind::Stitch, AnalyseStitch},
    {FileKind::LightProfile, AnalysePlain},
    {FileKind::AdjustCenterCcd, AnalysePlain},
    {FileKind::VerticalCameraVerification, AnalysePlain},
    {FileKind::StarTest, AnalyseStarTest},
    {FileKind::Tiff, AnalyseTiff},
    {FileKind::Unknown, AnalyseUnknown},
};

} // namespace

FiguresResult ComputeFigures(const Subject& subject, const AnalyseSettings& settings)
{
    for (const Analyser& analyser : kAnalysers) {
        if (analyser.kind == subject.Kind())
            return analyser.analyse(subject, settings);
    }
    return {{}, CannotBe(subject.Kind(), "analysed")};
}

FileResult AnalyseFile(const Subject& subject, const AnalyseSettings& settings)
{
    return ToFileResult(ComputeFigures(subject, settings));
}

} // namespace vireo
