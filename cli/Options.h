#pragma once

#include "cli/Settings.h"

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace vireo {

/// Options and arguments that several commands share. A value that an option refuses is bad usage.
/// Files and folders, at least one, and --recursive.
void AddFilesArgument(CLI::App& command, Settings& settings);
void AddFileArgument(CLI::App& command, Settings& settings);
/// The required file to write; `check` may refuse its name, or be null.
void AddOutputOption(CLI::App& command, Settings& settings, const char* description,
    void (*check)(Settings& settings) = nullptr);
void AddJobsOption(CLI::App& command, Settings& settings);
/// The limits file of figures, not required unless the command says so.
CLI::Option* AddLimitsOption(CLI::App& command, Settings& settings);
void AddKindOption(CLI::App& command, Settings& settings);
void AddLineOption(CLI::App& command, Settings& settings);
void AddSweepOption(CLI::App& command, Settings& settings);
/// The paper of PDF pages.
void AddPaperOption(CLI::App& command, Settings& settings);
void AddUnitOption(CLI::App& command, Settings& settings);

} // namespace vireo
