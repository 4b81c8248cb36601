#include "bench/BenchCommand.h"
#include "platform/Console.h"
#include "platform/ProcessInfo.h"

#include <CLI/CLI.hpp>

#include <cstdio>

namespace {

/// Prints the figures, or why there are none; the exit status.
int Report(const std::string& file, const vireo::FileResult& result)
{
    if (!result.failure.empty()) {
        const std::string subject = file.empty() ? "" : file + ": ";
        vireo::PrintError(vireo::kBenchProgram, subject + result.failure);
        return vireo::kExitFileFailed;
    }
    const bool written = std::puts(result.object.c_str()) >= 0 && std::fflush(stdout) == 0;
    return written ? vireo::kExitDone : vireo::kExitFileFailed;
}

} // namespace

int main(int argc, char** argv)
{
    vireo::NoteProcessStart(argv);
    vireo::SetUpStandardOutput();
    const vireo::BenchCommand commands[] = {vireo::LoadBench(), vireo::PlotBench(),
        vireo::FirstFrameBench(), vireo::TiffDecodeBench(), vireo::TiffEncodeBench(),
        vireo::StarTestBench()};
    CLI::App app("How fast the viewer's own code is.", vireo::kBenchProgram);
    vireo::BenchSettings settings;
    for (const vireo::BenchCommand& command : commands)
        command.addOptions(*vireo::AddCommand(app, command.name, command.summary), settings);

    const auto arguments = vireo::ProgramArguments(argc, argv);
    if (const auto exitStatus = vireo::ReadCommandLine(app, arguments))
        return *exitStatus;
    for (const vireo::BenchCommand& command : commands) {
        if (app.got_subcommand(command.name))
            return Report(settings.file, command.run(settings));
    }
    return vireo::kExitBadUsage;
}
