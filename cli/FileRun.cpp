#include "cli/FileRun.h"

#include "cli/CommandLineReader.h"
#include "cli/OrderedWork.h"
#include "cli/Program.h"
#include "cli/Reporter.h"
#include "platform/Path.h"

#include <algorithm>
#include <new>
#include <optional>

namespace vireo {

FileResult WorkOnFile(const std::string& file, const Settings& settings,
    const std::function<FileResult(const Subject&)>& work)
{
    // One file that needs more memory than there is, or finds a fault of ours, must not take the
    // others with it.
    try {
        Subject subject;
        const FileStatus status = RecogniseSubject(file, settings.kind, subject);
        if (status != FileStatus::Ok)
            return {{}, std::string(Describe(status))};
        return work(subject);
    } catch (const std::bad_alloc&) {
        return {{}, "Not enough memory"};
    } catch (const std::exception& fault) {
        return {{}, fault.what()};
    }
}

int RunOverFiles(const Settings& settings, const std::function<FileResult(const Subject&)>& work)
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

bool TakeLimits(Settings& settings, LimitsFile& limits)
{
    if (settings.limits.empty())
        return true;
    if (const auto fault = limits.Read(settings.limits)) {
        PrintError(kCommandLineProgram, Utf8FromPath(settings.limits) + ": " + fault->Text());
        return false;
    }
    settings.limitsFile = &limits;
    return true;
}

} // namespace vireo
