#include "platform/ProcessInfo.h"

#include <chrono>
#include <cstdlib>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

namespace vireo {

std::optional<std::int64_t> PeakMemoryKilobytes()
{
    rusage usage{};
    if (getrusage(RUSAGE_SELF, &usage) != 0)
        return std::nullopt;
#ifdef __APPLE__
    constexpr std::int64_t kBytesPerKilobyte = 1024;
    return usage.ru_maxrss / kBytesPerKilobyte;
#else
    return usage.ru_maxrss;
#endif
}

std::optional<std::uint64_t> MachineMemoryBytes()
{
    const auto pages = sysconf(_SC_PHYS_PAGES);
    const auto pageBytes = sysconf(_SC_PAGESIZE);
    if (pages <= 0 || pageBytes <= 0)
        return std::nullopt;
    return static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(pageBytes);
}

namespace {

constexpr const char* kStartVariable = "VIREO_PROCESS_START_NS";

std::int64_t MonotonicNanoseconds()
{
    return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::nanoseconds(1);
}

} // namespace

void NoteProcessStart(char* const* argv)
{
    if (std::getenv(kStartVariable) != nullptr)
        return;
    setenv(kStartVariable, std::to_string(MonotonicNanoseconds()).c_str(), 1);
    // Should it fail, the run that goes on counts from here.
    execv("/proc/self/exe", argv);
}

std::optional<double> MillisecondsSinceStart()
{
    const char* const start = std::getenv(kStartVariable);
    if (start == nullptr)
        return std::nullopt;
    constexpr double kNanosecondsPerMillisecond = 1e6;
    const std::int64_t elapsed = MonotonicNanoseconds() - std::strtoll(start, nullptr, 10);
    return static_cast<double>(elapsed) / kNanosecondsPerMillisecond;
}

} // namespace vireo
