#pragma once

#include "figures/FileResult.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

namespace vireo {

/// Tells what became of the files, in their order: objects on standard output, failures on standard
/// error and, while people look on, how far the work is.
class Reporter {
public:
    /// Without a count it is not known yet how many files there are.
    explicit Reporter(std::optional<std::size_t> fileCount);

    void Report(const std::string& file, const FileResult& result);

    /// Counts anew, for work that goes through the files a second time: so many of `what`, which
    /// people read behind the number.
    void CountAnew(std::string what, std::size_t count);

    /// Ends the report; the program's exit status.
    int Finish();

private:
    void ShowProgress();
    void ClearProgress();

    std::string m_what = "files";
    std::optional<std::size_t> m_count;
    std::size_t m_done = 0;
    bool m_anyFailed = false;
    bool m_outputFailed = false;
    bool m_showsProgress;
    std::size_t m_progressLength = 0;
    std::chrono::steady_clock::time_point m_lastShown;
};

} // namespace vireo
