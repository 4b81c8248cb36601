#include "platform/ProcessInfo.h"

#include <windows.h>

// This needs windows.h before it.
#include <psapi.h>

namespace vireo {

std::optional<std::int64_t> PeakMemoryKilobytes()
{
    PROCESS_MEMORY_COUNTERS counters = {};
    if (!GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters)))
        return std::nullopt;
    constexpr SIZE_T kBytesPerKilobyte = 1024;
    return static_cast<std::int64_t>(counters.PeakWorkingSetSize / kBytesPerKilobyte);
}

std::optional<std::uint64_t> MachineMemoryBytes()
{
    MEMORYSTATUSEX status = {};
    status.dwLength = sizeof(status);
    if (!GlobalMemoryStatusEx(&status))
        return std::nullopt;
    return status.ullTotalPhys;
}

void NoteProcessStart(char* const*)
{
    // The system keeps the start of every process to 100 ns.
}

namespace {

std::int64_t Ticks(const FILETIME& time)
{
    ULARGE_INTEGER value = {};
    value.LowPart = time.dwLowDateTime;
    value.HighPart = time.dwHighDateTime;
    return static_cast<std::int64_t>(value.QuadPart);
}

} // namespace

std::optional<double> MillisecondsSinceStart()
{
    FILETIME created = {};
    FILETIME other[3] = {};
    if (!GetProcessTimes(GetCurrentProcess(), &created, &other[0], &other[1], &other[2]))
        return std::nullopt;
    FILETIME now = {};
    GetSystemTimePreciseAsFileTime(&now);
    constexpr double kTicksPerMillisecond = 1e4;
    return static_cast<double>(Ticks(now) - Ticks(created)) / kTicksPerMillisecond;
}

} // namespace vireo
