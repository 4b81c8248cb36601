#include "cli/Command.h"
#include "cli/FileRun.h"
#include "cli/Options.h"
#include "figures/HeaderJson.h"

namespace vireo {

namespace {

void AddOptions(CommandOptions& command, Settings& settings)
{
    AddFilesArgument(command, settings);
    AddJobsOption(command, settings);
}

int Run(const Settings& settings)
{
    return RunOverFiles(
        settings, [](const Subject& subject, const Settings&) { return DescribeHeader(subject); });
}

} // namespace

Command HeaderCommand()
{
    return {"header", "The common keys of each file's header, as interpreted", AddOptions, Run};
}

} // namespace vireo
