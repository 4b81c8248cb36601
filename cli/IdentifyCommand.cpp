#include "cli/Command.h"
#include "cli/FileRun.h"
#include "cli/Options.h"
#include "figures/IdentifyJson.h"

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
        settings, [](const Subject& subject, const Settings&) { return IdentifyFile(subject); });
}

} // namespace

Command IdentifyCommand()
{
    return {"identify", "What each file is and which viewer opens it", AddOptions, Run};
}

} // namespace vireo
