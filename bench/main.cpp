#include "bench/BenchCommand.h"
#include "cli/CommandLine.h"
#include "cli/Shell.h"
#include "platform/Console.h"
#include "platform/ProcessInfo.h"

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
    vireo::CommandLine line({vireo::kBenchProgram, "How fast the viewer's own code is."});
    vireo::BenchSettings settings;
    for (const vireo::BenchCommand& command : commands)
        command.addOptions(line.AddCommand(command.name, command.summary), settings);
    if (const auto exitStatus = line.Read(vireo::ProgramArguments(argc, argv)))
        return *exitStatus;
    return Report(settings.file, commands[line.ChosenCommand()].run(settings));
}
