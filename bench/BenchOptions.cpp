#include "bench/BenchCommand.h"

#include <CLI/CLI.hpp>

namespace vireo {

void AddBenchFile(CLI::App& command, BenchSettings& settings, Presence presence)
{
    const auto take = [&settings](const std::string& file) { settings.file = WithoutGuard(file); };
    command.add_option_function<std::string>("FILE", take, "The file")
        ->required(presence == Presence::Required)
        ->type_name("");
}

void AddBenchOptions(CLI::App& command, BenchSettings& settings)
{
    constexpr int kMost = 1'000'000;
    constexpr int kMostThreads = 1024;
    command
        .add_option(
            "--repeat", settings.repeat, "Counted runs, after one that warms up (default: 5)")
        ->transform(WholeNumber(1, kMost))
        ->type_name("N");
    command
        .add_option("--threads", settings.threads,
            "Threads (default: 1, no helper threads; 0: as many as the viewer uses)")
        ->transform(WholeNumber(0, kMostThreads))
        ->type_name("N");
}

void AddBenchPage(CLI::App& command, BenchSettings& settings)
{
    constexpr int kMostPages = 65'535;
    command.add_option("--page", settings.page, "The page, counted from 1 (default: 1)")
        ->transform(WholeNumber(1, kMostPages))
        ->type_name("N");
}

} // namespace vireo
