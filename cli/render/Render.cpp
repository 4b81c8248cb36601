#include "cli/render/Render.h"

#include "cli/FileRun.h"
#include "cli/Output.h"
#include "cli/render/AdjustmentPicture.h"
#include "cli/render/LightProfilePicture.h"
#include "cli/render/NoisePicture.h"
#include "cli/render/OscilloscopePicture.h"
#include "cli/render/StarTestPicture.h"
#include "cli/render/StitchPicture.h"
#include "cli/render/TiffPicture.h"
#include "cli/render/TonalPicture.h"

#include <algorithm>
#include <iterator>

namespace vireo {

namespace {

constexpr OutputWriter kWriters[] = {
    {FileKind::Oscilloscope, RenderOscilloscope},
    {FileKind::Mtf, RenderOscilloscope},
    {FileKind::Noise, RenderNoise},
    {FileKind::LightProfile, RenderLightProfile},
    {FileKind::AdjustCenterCcd, RenderAdjustment},
    {FileKind::VerticalCameraVerification, RenderAdjustment},
    {FileKind::Tiff, RenderTiff},
    {FileKind::TonalResolution, RenderTonal},
    {FileKind::StarTest, RenderStarTest},
    {FileKind::Stitch, RenderStitch},
};

} // namespace

bool CanDraw(FileKind kind)
{
    return std::ranges::find(kWriters, kind, &OutputWriter::kind) != std::end(kWriters);
}

FileResult DrawSubject(const Subject& subject, const Settings& settings)
{
    return WriteOutput(subject, settings, kWriters, "rendered");
}

int Render(const Settings& settings)
{
    return RunOverFiles(settings, DrawSubject);
}

} // namespace vireo
