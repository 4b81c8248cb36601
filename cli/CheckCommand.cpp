#include "cli/Command.h"
#include "cli/CommandLine.h"
#include "cli/FileRun.h"
#include "cli/Options.h"
#include "figures/LimitsCheck.h"

namespace vireo {

namespace {

void AddOptions(CommandOptions& command, Settings& settings)
{
    AddFilesArgument(command, settings);
    AddLimitsOption(command, settings, Presence::Required);
    AddKindOption(command, settings);
    AddLineOption(command, settings);
    AddUnitOption(command, settings);
    AddJobsOption(command, settings);
}

FileResult Check(const Subject& subject, const Settings& settings)
{
    const FileVerdict result = CheckFile(subject, *settings.limitsFile, AskedFigures(settings));
    FileResult told{{}, result.failure};
    if (result.verdict)
        told.object = ToLine(VerdictToJson(subject, result));
    told.isRejected = !result.IsPassed();
    return told;
}

int Run(const Settings& settings)
{
    return RunOverFiles(settings, Check);
}

} // namespace

Command CheckCommand()
{
    return {"check", "Whether the figures of each file are within the limits", AddOptions, Run};
}

} // namespace vireo
