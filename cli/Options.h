#pragma once

#include "cli/CommandLine.h"
#include "cli/Settings.h"

namespace vireo {

/// Options and arguments that several commands share. A value that an option refuses is bad usage.
/// Files and folders, at least one, and --recursive.
void AddFilesArgument(CommandOptions& command, Settings& settings);
void AddFileArgument(CommandOptions& command, Settings& settings);
/// The required file to write; `check` may refuse its name, or be null.
void AddOutputOption(CommandOptions& command, Settings& settings, const char* description,
    Refusal (*check)(Settings& settings) = nullptr);
void AddJobsOption(CommandOptions& command, Settings& settings);
/// The limits file of figures.
void AddLimitsOption(
    CommandOptions& command, Settings& settings, Presence presence = Presence::Optional);
void AddKindOption(CommandOptions& command, Settings& settings);
void AddLineOption(CommandOptions& command, Settings& settings);
void AddSweepOption(CommandOptions& command, Settings& settings);
/// The paper of PDF pages.
void AddPaperOption(CommandOptions& command, Settings& settings);
void AddUnitOption(CommandOptions& command, Settings& settings);

} // namespace vireo
