#include "cli/Program.h"

#include "cli/Command.h"
#include "cli/CommandLineReader.h"

#include <CLI/CLI.hpp>

namespace vireo {

int RunProgram(const std::vector<std::string>& arguments)
{
    const Command commands[] = {IdentifyCommand(), HeaderCommand(), AnalyseCommand(),
        RenderCommand(), ExportCommand(), UnpackCommand(), PackCommand(), ConvertCommand(),
        ErrorCommand()};
    CLI::App app("What the viewer shows of test files, for scripts.", kCommandLineProgram);
    app.set_version_flag("--version", std::string(kCommandLineProgram) + " " VIREO_VERSION);

    Settings settings;
    for (const Command& command : commands)
        command.addOptions(*AddCommand(app, command.name, command.summary), settings);
    if (const auto exitStatus = ReadCommandLine(app, arguments))
        return *exitStatus;
    for (const Command& command : commands) {
        if (app.got_subcommand(command.name))
            return command.run(settings);
    }
    return kExitBadUsage;
}

} // namespace vireo
