#include "cli/Reporter.h"

#include "cli/Program.h"
#include "cli/Shell.h"
#include "platform/Console.h"
#include "platform/Text.h"

#include <cstdio>
#include <utility>

namespace vireo {

Reporter::Reporter(std::optional<std::size_t> fileCount)
    : m_count(fileCount),
      m_showsProgress(fileCount != 1 && StandardErrorIsTerminal()),
      m_lastShown(std::chrono::steady_clock::now())
{
}

void Reporter::Report(const std::string& file, const FileResult& result)
{
    ++m_done;
    if (!result.object.empty() || !result.failure.empty())
        ClearProgress();
    // A line at a time, so that a program that reads along sees each file when it is done.
    if (!result.object.empty())
        m_outputFailed |= !PrintOutput(result.object + '\n');
    m_anyFailed |= result.isRejected;
    if (!result.failure.empty()) {
        m_anyFailed = true;
        PrintError(kCommandLineProgram, file + ": " + result.failure);
    }
    ShowProgress();
}

void Reporter::CountAnew(std::string what, std::size_t count)
{
    ClearProgress();
    m_what = std::move(what);
    m_count = count;
    m_done = 0;
}

int Reporter::Finish()
{
    ClearProgress();
    if (m_outputFailed)
        PrintError(kCommandLineProgram, kOutputFailed);
    return m_anyFailed || m_outputFailed ? kExitFileFailed : kExitDone;
}

void Reporter::ShowProgress()
{
    constexpr std::chrono::milliseconds kInterval{100};
    const auto now = std::chrono::steady_clock::now();
    if (!m_showsProgress || now - m_lastShown < kInterval)
        return;
    m_lastShown = now;
    const std::string count =
        m_count ? Format("%zu of %zu", m_done, *m_count) : std::to_string(m_done);
    const std::string text = count + ' ' + m_what;
    std::fprintf(stderr, "\r%s", text.c_str());
    std::fflush(stderr);
    m_progressLength = text.size();
}

void Reporter::ClearProgress()
{
    if (m_progressLength == 0)
        return;
    std::fprintf(stderr, "\r%*s\r", static_cast<int>(m_progressLength), "");
    m_progressLength = 0;
}

} // namespace vireo
