#include "cli/Command.h"
#include "cli/CommandLine.h"
#include "cli/FileRun.h"
#include "cli/Options.h"
#include "figures/Analysers.h"

namespace vireo {

namespace {

void AddOptions(CommandOptions& command, Settings& settings)
{
    AddFilesArgument(command, settings);
    AddKindOption(command, settings);
    AddLineOption(command, settings);
    AddUnitOption(command, settings);
    AddJobsOption(command, settings);
    command.AddFlag("--arrays", "Tell every value of a star test's curves, not only their figures",
        settings.arrays);
}

FileResult Analyse(const Subject& subject, const Settings& settings)
{
    return AnalyseFile(subject, AskedFigures(settings));
}

int Run(const Settings& settings)
{
    return RunOverFiles(settings, Analyse);
}

} // namespace

Command AnalyseCommand()
{
    return {"analyse", "Every figure that the viewer of each file shows", AddOptions, Run};
}

} // namespace vireo
