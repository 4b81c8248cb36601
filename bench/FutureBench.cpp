#include "bench/BenchCommand.h"

#include <CLI/CLI.hpp>

namespace vireo {

namespace {

/// Takes whatever the measurement will be asked for.
void AddOptions(CLI::App& command, BenchSettings&)
{
    command.allow_extras();
}

FileResult Run(const BenchSettings&)
{
    return {{}, "This cannot be measured yet"};
}

} // namespace

BenchCommand FutureBench(const char* name)
{
    return {name, "Not measured yet", AddOptions, Run};
}

} // namespace vireo
