#include "cli/Command.h"
#include "cli/FileRun.h"
#include "cli/Options.h"
#include "figures/Analysers.h"

#include <CLI/CLI.hpp>

namespace vireo {

namespace {

void AddOptions(CLI::App& command, Settings& settings)
{
    AddFilesArgument(command, settings);
    AddKindOption(command, settings);
    AddLineOption(command, settings);
    AddUnitOption(command, settings);
    AddJobsOption(command, settings);
    command
        .add_flag("--arrays", settings.arrays,
            "Tell every value of a star test's curves, not only their figures")
        ->disable_flag_override();
}

int Run(const Settings& settings)
{
    return RunOverFiles(settings, [&settings](const Subject& subject) {
        return AnalyseFile(
            subject, AnalyseSettings{settings.line, settings.unit, settings.arrays, true});
    });
}

} // namespace

Command AnalyseCommand()
{
    return {"analyse", "Every figure that the viewer of each file shows", AddOptions, Run};
}

} // namespace vireo
