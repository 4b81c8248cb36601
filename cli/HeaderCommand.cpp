#include "cli/Command.h"
#include "cli/FileRun.h"
#include "cli/Options.h"
#include "figures/HeaderJson.h"

namespace vireo {

namespace {

void AddOptions(CLI::App& command, Settings& settings)
{
    AddFilesArgument(command, settings);
    AddJobsOption(command, settings);
}

int Run(const Settings& settings)
{
    return RunOverFiles(settings, DescribeHeader);
}

} // namespace

Command HeaderCommand()
{
    return {"header", "The common keys of each file's header, as interpreted", AddOptions, Run};
}

} // namespace vireo
