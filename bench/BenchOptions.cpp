#include "bench/BenchCommand.h"

namespace vireo {

void AddBenchOptions(CommandOptions& command, BenchSettings& settings, Presence ofFile)
{
    constexpr int kMost = 1'000'000;
    constexpr int kMostThreads = 1024;
    command.AddName({"FILE", ofFile}, "The file", settings.file);
    command.AddNumber("--repeat N", "Counted runs, after one that warms up (default: 5)",
        {1, kMost}, settings.repeat);
    command.AddNumber("--threads N",
        "Threads (default: 1, no helper threads; 0: as many as the viewer uses)", {0, kMostThreads},
        settings.threads);
}

} // namespace vireo
