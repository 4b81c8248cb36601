#include "cli/FileRun.h"

#include "cli/OrderedWork.h"
#include "cli/Reporter.h"

#include <new>

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
    Reporter reporter(settings.files.size());
    WorkInOrder(
        settings.files.size(), settings.jobs,
        [&](std::size_t i) { return WorkOnFile(settings.files[i], settings, work); },
        [&](std::size_t i, const FileResult& result) {
            reporter.Report(settings.files[i], result);
        });
    return reporter.Finish();
}

} // namespace vireo
