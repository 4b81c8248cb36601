#include "cli/FileRun.h"

#include "cli/OrderedWork.h"
#include "cli/Reporter.h"

#include <algorithm>
#include <new>
#include <optional>

namespace vireo {

namespace {

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

} // namespace

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

} // namespace vireo
