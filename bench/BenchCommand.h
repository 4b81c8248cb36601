#pragma once

#include "bench/BenchSettings.h"
#include "cli/CommandLine.h"
#include "figures/FileResult.h"

namespace vireo {

/// One thing that the program measures.
struct BenchCommand {
    const char* name;
    const char* summary; ///< For the program's help.
    void (*addOptions)(CommandOptions& command, BenchSettings& settings);
    /// Measures; the figures as one object, or the reason why there are none.
    FileResult (*run)(const BenchSettings& settings);
};

BenchCommand LoadBench();
BenchCommand PlotBench();
BenchCommand FirstFrameBench();
BenchCommand StarTestBench();
BenchCommand TiffDecodeBench();
BenchCommand TiffEncodeBench();

/// Adds what all commands have: the file, and the options that say how it is measured.
void AddBenchOptions(CommandOptions& command, BenchSettings& settings, Presence ofFile);

} // namespace vireo
