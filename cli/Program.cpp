#include "cli/Program.h"

#include "cli/Command.h"
#include "cli/CommandLineReader.h"
#include "cli/Drawing.h"
#include "platform/Console.h"
#include "platform/FilePattern.h"

#include <CLI/CLI.hpp>

namespace vireo {

int RunProgram(const std::vector<std::string>& arguments)
{
    const Command commands[] = {IdentifyCommand(), HeaderCommand(), AnalyseCommand(),
        CheckCommand(), RenderCommand(), ReportCommand(), ExportCommand(), UnpackCommand(),
        PackCommand(), ConvertCommand(), ErrorCommand()};
    CLI::App app("What the viewer shows of test files, for scripts.", kCommandLineProgram);
    app.set_version_flag("--version", std::string(kCommandLineProgram) + " " VIREO_VERSION,
        "Print the version and exit");

    Settings settings;
    for (const Command& command : commands)
        command.addOptions(*AddCommand(app, command.name, command.summary), settings);
    // Behind the commands, which would take it over.
    app.footer("vireo-cli COMMAND --help tells the options of a command; behind -- every argument "
               "is a file. Exit status: 0 every file is done, 1 at least one file failed (the "
               "others are done), 2 bad usage.");
    if (const auto exitStatus = ReadCommandLine(
            app, ShellExpandsPatterns() ? arguments : WithPatternsExpanded(arguments)))
        return *exitStatus;
    for (const Command& command : commands) {
        if (app.got_subcommand(command.name))
            return command.run ? command.run(settings) : Draw(command, settings, arguments);
    }
    return kExitBadUsage;
}

} // namespace vireo
