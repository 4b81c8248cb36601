#include "cli/Command.h"
#include "cli/FileParts.h"
#include "cli/FileRun.h"
#include "cli/Options.h"
#include "cli/Output.h"
#include "figures/AdjustmentJson.h"
#include "figures/LightProfileJson.h"
#include "figures/OscilloscopeJson.h"
#include "figures/StarTestJson.h"
#include "platform/Text.h"
#include "viewers/adjustment/AdjustmentData.h"
#include "viewers/adjustment/AdjustmentExport.h"
#include "viewers/controls/SampleExport.h"
#include "viewers/lightprofile/LightProfileData.h"
#include "viewers/noise/NoiseData.h"
#include "viewers/noise/NoiseExport.h"
#include "viewers/oscilloscope/OscilloscopeData.h"
#include "viewers/oscilloscope/OscilloscopeExport.h"
#include "viewers/picture/PictureExport.h"
#include "viewers/startest/StarTestData.h"
#include "viewers/startest/StarTestExport.h"
#include "viewers/stitch/StitchData.h"
#include "viewers/stitch/StitchExport.h"
#include "viewers/stitch/StitchText.h"
#include "viewers/tonal/TonalExport.h"
#include "viewers/tonal/TonalResolutionData.h"

#include <iterator>
#include <utility>

namespace vireo {

namespace {

void AddOptions(CommandOptions& command, Settings& settings)
{
    AddFileArgument(command, settings);
    AddOutputOption(command, settings, "The table to write, such as OUT.csv");
    AddKindOption(command, settings);
    AddLineOption(command, settings);
    AddSweepOption(command, settings);
}

std::string ExportOscilloscope(const Subject& subject, const Settings& settings)
{
    OscilloscopeData data;
    if (std::string failure = OpenOscilloscope(subject, settings.line, data); !failure.empty())
        return failure;
    return DescribeOutput(settings.output, ExportLineAsCsv(settings.output, data, settings.line));
}

std::string ExportNoise(const Subject& subject, const Settings& settings)
{
    NoiseData data;
    if (const NoiseResult result = data.Read(subject.path); result != NoiseResult::Ok)
        return data.DescribeFailure(result);
    if (std::string refusal = RefuseMissing(settings, {}); !refusal.empty())
        return refusal;
    return DescribeOutput(settings.output, ExportNoiseAsCsv(settings.output, data));
}

std::string ExportLightProfile(const Subject& subject, const Settings& settings)
{
    LightProfileData data;
    if (std::string failure = OpenLightProfile(subject, settings.line, data); !failure.empty())
        return failure;
    return DescribeOutput(settings.output,
        ExportSamplesAsCsv(
            settings.output, data.Lines(), data.Cameras(), data.FirstShown(), settings.line));
}

std::string ExportAdjustment(const Subject& subject, const Settings& settings)
{
    AdjustmentData data;
    if (std::string failure = OpenAdjustment(subject, settings.line, data); !failure.empty())
        return failure;
    return DescribeOutput(
        settings.output, ExportAdjustmentAsCsv(settings.output, data, settings.line));
}

std::string ExportTonal(const Subject& subject, const Settings& settings)
{
    TonalResolutionData data;
    if (const TonalResult result = data.Read(subject.path); result != TonalResult::Ok)
        return data.DescribeFailure(result);
    if (std::string refusal = RefuseMissing(settings, {}); !refusal.empty())
        return refusal;
    return DescribeOutput(settings.output, ExportTonalAsCsv(settings.output, data));
}

std::string ExportStarTest(const Subject& subject, const Settings& settings)
{
    StarTestData data;
    if (std::string failure = OpenStarTest(subject, settings.sweep, data); !failure.empty())
        return failure;
    FileParts parts;
    parts.lines = data.SelectedSweep()->LineCount();
    parts.sweeps = std::ssize(data.m_sweeps);
    if (std::string refusal = RefuseMissing(settings, parts); !refusal.empty())
        return refusal;
    return DescribeOutput(
        settings.output, ExportSweepAsCsv(settings.output, *data.SelectedSweep()));
}

std::string ExportStitch(const Subject& subject, const Settings& settings)
{
    StitchData data;
    if (const StitchResult result = data.Read(subject.path); result != StitchResult::Ok)
        return data.DescribeFailure(result);
    if (!data.IsWorkable())
        return kNotWorkable;
    if (settings.line >= data.Picture()->Height())
        return Format("There is no line %lld: the file has %lld, counted from 0",
            static_cast<long long>(settings.line),
            static_cast<long long>(data.Picture()->Height()));
    return DescribeOutput(settings.output, ExportStitchAsCsv(settings.output, data, settings.line));
}

std::string ExportTiff(const Subject& subject, const Settings& settings)
{
    WorkProgress progress;
    return ExportPictureRow({subject.path, 1, settings.line, settings.output}, progress);
}

constexpr OutputWriter kWriters[] = {
    {FileKind::Oscilloscope, ExportOscilloscope},
    {FileKind::Mtf, ExportOscilloscope},
    {FileKind::Noise, ExportNoise},
    {FileKind::LightProfile, ExportLightProfile},
    {FileKind::AdjustCenterCcd, ExportAdjustment},
    {FileKind::VerticalCameraVerification, ExportAdjustment},
    {FileKind::TonalResolution, ExportTonal},
    {FileKind::StarTest, ExportStarTest},
    {FileKind::Stitch, ExportStitch},
    {FileKind::Tiff, ExportTiff},
};

FileResult Export(const Subject& subject, const Settings& settings)
{
    FileParts parts;
    parts.lines.reset(); // They are counted where the file is open; so are sweeps.
    if (subject.Kind() != FileKind::StarTest)
        if (std::string refusal = RefuseMissing(settings, parts); !refusal.empty())
            return {{}, std::move(refusal)};
    return WriteOutput(subject, settings, kWriters, "exported");
}

int Run(const Settings& settings)
{
    return RunOverFiles(settings, Export);
}

} // namespace

Command ExportCommand()
{
    return {"export", "The series that the viewer plots, as a CSV table", AddOptions, Run};
}

} // namespace vireo
