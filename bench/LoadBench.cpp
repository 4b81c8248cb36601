#include "bench/BenchCommand.h"
#include "bench/Timing.h"
#include "cli/json/Analysers.h"
#include "cli/json/Json.h"
#include "cli/json/Subject.h"
#include "platform/Path.h"

#include <algorithm>

namespace vireo {

namespace {

void AddOptions(CLI::App& command, BenchSettings& settings)
{
    AddBenchFile(command, settings, Presence::Required);
    AddBenchOptions(command, settings);
}

FileResult Load(const std::string& file)
{
    Subject subject;
    const FileStatus status = RecogniseSubject(file, std::nullopt, subject);
    if (status != FileStatus::Ok)
        return {{}, std::string(Describe(status))};
    return AnalyseFile(subject, {});
}

std::int64_t FileBytes(const std::string& file)
{
    PositionalFile opened;
    return opened.Open(PathFromUtf8(file)) == FileStatus::Ok
        ? static_cast<std::int64_t>(opened.Size())
        : 0;
}

FileResult Run(const BenchSettings& settings)
{
    if (FileResult first = Load(settings.file); !first.failure.empty())
        return {{}, std::move(first.failure)};
    const auto seconds = TimesOf(settings.repeat, [&] { Load(settings.file); });

    constexpr double kBytesPerMegabyte = 1e6;
    const std::int64_t bytes = FileBytes(settings.file);
    Json object;
    object["mb_per_s"] = static_cast<double>(bytes) / kBytesPerMegabyte / Median(seconds);
    object["seconds_min"] = Smallest(seconds);
    object["seconds_median"] = Median(seconds);
    object["pixels_bytes"] = 0;
    object["file_bytes"] = bytes;
    object["threads"] = std::max(settings.threads, 1); // The viewer loads on one.
    return {ToLine(object), {}};
}

} // namespace

BenchCommand LoadBench()
{
    return {"load", "A file of any kind, read until all that vireo-cli analyse prints is known",
        AddOptions, Run};
}

} // namespace vireo
