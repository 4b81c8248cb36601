#pragma once

#include "cli/Settings.h"
#include "figures/FileResult.h"
#include "figures/Subject.h"

#include <functional>

namespace vireo {

/// Recognises every file of the settings and works on it, as many at a time as the settings say,
/// and reports the results in order; the program's exit status. A file that fails does not keep
/// the others from being done.
int RunOverFiles(const Settings& settings, const std::function<FileResult(const Subject&)>& work);

} // namespace vireo
