#pragma once

#include "cli/Settings.h"
#include "figures/FileResult.h"
#include "figures/Subject.h"

#include <functional>
#include <string>

namespace vireo {

struct AnalyseSettings;

/// What a command does with one file, on any thread.
using FileWork = std::function<FileResult(const Subject& subject, const Settings& settings)>;

/// Recognises one file and works on it. Whatever goes wrong is its failure.
FileResult WorkOnFile(const std::string& file, const Settings& settings, const FileWork& work);

/// Recognises every file of the settings and works on it, as many at a time as the settings say,
/// and reports the results in order; the program's exit status. A file that fails does not keep
/// the others from being done.
int RunOverFiles(const Settings& settings, const FileWork& work);

/// Runs a command with the limits of the settings' limits file, if they name one; the program's
/// exit status. It is bad usage, and told, when the limits cannot be read.
int RunWithLimits(const Settings& settings, int (*run)(const Settings& settings));

/// The figures that the settings ask of a file.
AnalyseSettings AskedFigures(const Settings& settings);

} // namespace vireo
