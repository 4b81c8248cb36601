#include "cli/Command.h"
#include "cli/Options.h"
#include "cli/Reporter.h"
#include "platform/Path.h"
#include "testfile/DumpWriter.h"

#include <algorithm>

namespace vireo {

namespace {

void AddOptions(CLI::App& command, Settings& settings)
{
    AddFilesArgument(command, settings);
    AddOutputOption(command, settings, "The packed dump to write");
}

int Run(const Settings& settings)
{
    std::vector<std::filesystem::path> files(settings.files.size());
    std::ranges::transform(settings.files, files.begin(), PathFromUtf8);
    WorkProgress progress;
    const PackReport report = PackDump(files, settings.output, progress);

    Reporter reporter(1);
    for (const PackReport::Failure& failure : report.failures)
        reporter.Report(settings.files[failure.file], {{}, failure.reason});
    if (report.status != FileStatus::Ok)
        reporter.Report(Utf8FromPath(settings.output), {{}, std::string(Describe(report.status))});
    return reporter.Finish();
}

} // namespace

Command PackCommand()
{
    return {"pack", "A packed dump that carries the files", AddOptions, Run};
}

} // namespace vireo
