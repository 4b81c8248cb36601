#include "cli/Command.h"
#include "cli/CommandLineReader.h"
#include "cli/FileRun.h"
#include "cli/Options.h"
#include "figures/LimitsCheck.h"

#include <CLI/CLI.hpp>

namespace vireo {

namespace {

void AddOptions(CLI::App& command, Settings& settings)
{
    AddFilesArgument(command, settings);
    AddLimitsOption(command, settings)->required();
    AddKindOption(command, settings);
    AddLineOption(command, settings);
    AddUnitOption(command, settings);
    AddJobsOption(command, settings);
}

FileResult Check(const Subject& subject, const Settings& settings)
{
    AnalyseSettings asked;
    asked.line = settings.line;
    asked.unit = settings.unit;
    const FileVerdict result = CheckFile(subject, *settings.limitsFile, asked);
    FileResult told{{}, result.failure};
    if (result.verdict)
        told.object = ToLine(VerdictToJson(subject, result));
    told.isRejected = !result.IsPassed();
    return told;
}

int Run(const Settings& given)
{
    Settings settings = given;
    LimitsFile limits;
    if (!TakeLimits(settings, limits))
        return kExitBadUsage;
    return RunOverFiles(
        settings, [&settings](const Subject& subject) { return Check(subject, settings); });
}

} // namespace

Command CheckCommand()
{
    return {"check", "Whether the figures of each file are within the limits", AddOptions, Run};
}

} // namespace vireo
