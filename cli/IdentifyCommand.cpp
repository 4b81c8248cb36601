#include "cli/Command.h"
#include "cli/FileRun.h"
#include "cli/Options.h"
#include "figures/IdentifyJson.h"

namespace vireo {

namespace {

void AddOptions(CLI::App& command, Settings& settings)
{
    AddFilesArgument(command, settings);
    AddJobsOption(command, settings);
}

int Run(const Settings& settings)
{
    return RunOverFiles(settings, IdentifyFile);
}

} // namespace

Command IdentifyCommand()
{
    return {"identify", "What each file is and which viewer opens it", AddOptions, Run};
}

} // namespace vireo
