#pragma once

#include "bench/BenchSettings.h"
#include "figures/FileResult.h"

namespace CLI {
class App;
}

namespace vireo {

/// One thing that the program measures.
struct BenchCommand {
    const char* name;
    const char* summary; ///< For the program's help.
    void (*addOptions)(CLI::App& command, BenchSettings& settings);
    /// Measures; the figures as one object, or the reason why there are none.
    FileResult (*run)(const BenchSettings& settings);
};

BenchCommand LoadBench();
BenchCommand PlotBench();
BenchCommand FirstFrameBench();
BenchCommand StarTestBench();
BenchCommand TiffDecodeBench();
BenchCommand TiffEncodeBench();

// Options and arguments that several commands share.
enum class Presence { Required, Optional };
void AddBenchFile(CLI::App& command, BenchSettings& settings, Presence presence);
void AddBenchOptions(CLI::App& command, BenchSettings& settings);
void AddBenchPage(CLI::App& command, BenchSettings& settings);

} // namespace vireo
