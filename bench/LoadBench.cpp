#include "bench/BenchCommand.h"
#include "bench/Figures.h"
#include "bench/Timing.h"
#include "figures/Analysers.h"
#include "figures/Subject.h"
#include "platform/Path.h"

namespace vireo {

namespace {

void AddOptions(CommandOptions& command, BenchSettings& settings)
{
    AddBenchOptions(command, settings, Presence::Required);
}

FileResult Load(const std::string& file)
{
    Subject subject;
    const FileStatus status = RecogniseSubject(file, std::nullopt, subject);
    if (status != FileStatus::Ok)
        return {{}, std::string(Describe(status))};
    AnalyseSettings settings;
    settings.hashes = false;
    return AnalyseFile(subject, settings);
}

FileResult Run(const BenchSettings& settings)
{
    if (FileResult first = Load(settings.file); !first.failure.empty())
        return {{}, std::move(first.failure)};
    const auto seconds = TimesOf(settings.repeat, [&] { Load(settings.file); });

    // The viewer loads on one thread.
    const std::int64_t bytes = FileBytes(PathFromUtf8(settings.file));
    return {ToLine(FileFigures(seconds, bytes, 1)), {}};
}

} // namespace

BenchCommand LoadBench()
{
    return {"load", "A file of any kind, read until all that vireo-cli analyse prints is known",
        AddOptions, Run};
}

} // namespace vireo
