#pragma once

#include "cli/Settings.h"
#include "figures/FileResult.h"
#include "figures/Subject.h"
#include "limits/LimitsFile.h"

#include <functional>
#include <string>

namespace vireo {

/// Recognises one file and works on it. Whatever goes wrong is its failure.
FileResult WorkOnFile(const std::string& file, const Settings& settings,
    const std::function<FileResult(const Subject&)>& work);

/// Recognises every file of the settings and works on it, as many at a time as the settings say,
/// and reports the results in order; the program's exit status. A file that fails does not keep
/// the others from being done.
int RunOverFiles(const Settings& settings, const std::function<FileResult(const Subject&)>& work);

/// Reads the settings' limits file, if they name one, into `limits`, and refers the settings to it.
/// False when it cannot be read, which is told: bad usage.
bool TakeLimits(Settings& settings, LimitsFile& limits);

} // namespace vireo
