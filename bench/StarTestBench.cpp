#include "bench/BenchCommand.h"
#include "bench/Figures.h"
#include "bench/Timing.h"
#include "platform/Path.h"
#include "viewers/startest/StarTestData.h"

namespace vireo {

namespace {

void AddOptions(CommandOptions& command, BenchSettings& settings)
{
    AddBenchOptions(command, settings, Presence::Required);
}

FileResult Run(const BenchSettings& settings)
{
    const std::filesystem::path file = PathFromUtf8(settings.file);
    StarTestData data;
    if (const StarTestResult result = data.Read(file); result != StarTestResult::Ok)
        return {{}, data.DescribeFailure(result)};
    StarTestResult result = StarTestResult::Ok;
    const auto seconds = TimesOf(settings.repeat, [&] {
        data.Clear(); // As the viewer does before it reads another file.
        result = data.Read(file);
    });
    if (result != StarTestResult::Ok)
        return {{}, data.DescribeFailure(result)};
    return {ToLine(FileFigures(seconds, FileBytes(file), 1)), {}};
}

} // namespace

BenchCommand StarTestBench()
{
    return {"startest", "A star-test file read and every curve of it worked out", AddOptions, Run};
}

} // namespace vireo
