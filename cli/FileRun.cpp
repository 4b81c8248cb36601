#include "cli/FileRun.h"

#include "cli/OrderedWork.h"
#include "cli/Program.h"
#include "cli/Reporter.h"
#include "cli/Shell.h"
#include "figures/Analysers.h"
#include "limits/LimitsFile.h"
#include "platform/FileIdentity.h"
#include "platform/Path.h"

#include <algorithm>
#include <new>
#include <optional>

namespace vireo {

FileResult WorkOnFile(const std::string& file, const Settings& settings, const FileWork& work)
{
    // One file that needs more memory than there is, or finds a fault of ours, must not take the
    // others with it.
    try {
        Subject subject;
        const FileStatus status = RecogniseSubject(file, settings.kind, subject);
        if (status != FileStatus::Ok)
            return {{}, std::string(Describe(status))};
        return work(subject, settings);
    } catch (const std::bad_alloc&) {
        return {{}, "Not enough memory"};
    } catch (const std::exception& fault) {
        return {{}, fault.what()};
    }
}

int RunOverFiles(const Settings& settings, const FileWork& work)
{
    FileSource source(settings.files, settings.folders);
    const std::optional<std::size_t> count = source.Count();
    Reporter reporter(count);
    WorkInOrder(
        source, std::min(settings.jobs, count.value_or(settings.jobs)),
        [&](const std::string& file) { return WorkOnFile(file, settings, work); },
        [&](const std::string& file, const FileResult& result) { reporter.Report(file, result); });
    return reporter.Finish();
}

int RunWithLimits(const Settings& settings, int (*run)(const Settings& settings))
{
    if (settings.limits.empty())
        return run(settings);
    if (IsSameFile(settings.limits, settings.output)) {
        PrintError(kCommandLineProgram,
            Utf8FromPath(settings.limits) + ": The output would replace the limits");
        return kExitFileFailed;
    }
    LimitsFile limits;
    if (const auto fault = limits.Read(settings.limits)) {
        PrintError(kCommandLineProgram, Utf8FromPath(settings.limits) + ": " + fault->Text());
        return kExitBadUsage;
    }
    Settings withLimits = settings;
    withLimits.limitsFile = &limits;
    return run(withLimits);
}

AnalyseSettings AskedFigures(const Settings& settings)
{
    AnalyseSettings asked;
    asked.line = settings.line;
    asked.unit = settings.unit;
    asked.arrays = settings.arrays;
    return asked;
}

} // namespace vireo
