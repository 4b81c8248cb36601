#include "platform/RemoveOnStop.h"

#include <atomic>
#include <csignal>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

namespace vireo {

namespace {

/// What asks a program to end, or finds it without a reader or without time.
constexpr int kStopSignals[] = {SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGTERM, SIGXCPU};

sigset_t StopSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : kStopSignals)
        sigaddset(&signals, signal);
    return signals;
}

/// A signal's handler may not wait for a mutex.
std::atomic_flag isListTaken = ATOMIC_FLAG_INIT;

void TakeList()
{
    while (isListTaken.test_and_set(std::memory_order_acquire)) { }
}

/// The list is never destroyed, for threads may write files until the very end.
std::vector<std::string>& Files()
{
    static std::vector<std::string>& files =
        *std::make_unique<std::vector<std::string>>().release();
    return files;
}

/// The list of files, for as long as this lives. The thread is not interrupted by stop signals
/// meanwhile, so that their handler, which waits for the list, never waits for its own thread.
class TakenList {
public:
    TakenList()
    {
        const sigset_t signals = StopSignals();
        pthread_sigmask(SIG_BLOCK, &signals, &m_before);
        TakeList();
    }
    TakenList(const TakenList&) = delete;
    TakenList& operator=(const TakenList&) = delete;
    ~TakenList()
    {
        isListTaken.clear(std::memory_order_release);
        pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
    }

private:
    sigset_t m_before = {};
};

/// Calls only what a handler may call. The list is not given back: nobody is to add a file now.
void RemoveFilesAndStop(int signal)
{
    TakeList();
    for (const std::string& file : Files())
        unlink(file.c_str());
    // Comes when this handler, in which it is blocked, returns.
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

/// What is ignored (nohup) or handled otherwise stays so.
bool AnswerStopSignals()
{
    struct sigaction answer = {};
    answer.sa_handler = RemoveFilesAndStop;
    answer.sa_mask = StopSignals();
    for (const int signal : kStopSignals) {
        struct sigaction before = {};
        if (sigaction(signal, nullptr, &before) == 0 && (before.sa_flags & SA_SIGINFO) == 0
            && before.sa_handler == SIG_DFL)
            sigaction(signal, &answer, nullptr);
    }
    return true;
}

} // namespace

void RemoveOnStop(const std::filesystem::path& file)
{
    {
        const TakenList taken;
        Files().push_back(file.native());
    }
    static const bool isAnswering = AnswerStopSignals();
    static_cast<void>(isAnswering);
}

void KeepOnStop(const std::filesystem::path& file)
{
    const TakenList taken;
    std::erase(Files(), file.native());
}

} // namespace vireo
