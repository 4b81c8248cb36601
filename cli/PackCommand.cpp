#include "cli/Command.h"
#include "cli/Options.h"
#include "cli/Reporter.h"
#include "platform/Path.h"
#include "testfile/DumpWriter.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vireo {

namespace {

void AddOptions(CommandOptions& command, Settings& settings)
{
    AddFilesArgument(command, settings);
    AddOutputOption(command, settings, "The packed dump to write");
}

int Run(const Settings& settings)
{
    // A folder that cannot be listed cannot be packed either, which is told as it is of files.
    std::vector<std::string> names;
    std::vector<std::filesystem::path> files;
    FileSource source(settings.files, settings.folders, settings.output);
    while (auto item = source.Next()) {
        files.push_back(PathFromUtf8(item->name));
        names.push_back(std::move(item->name));
    }
    WorkProgress progress;
    const PackReport report = PackDump(files, settings.output, progress);
    Reporter reporter(1);
    for (const PackReport::Failure& failure : report.failures)
        reporter.Report(names[failure.file], {{}, failure.reason});
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
