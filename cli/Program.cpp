#include "cli/Program.h"

#include "cli/Command.h"
#include "cli/CommandLine.h"
#include "cli/Drawing.h"
#include "cli/FileRun.h"
#include "platform/Console.h"
#include "platform/FilePattern.h"

namespace vireo {

int RunProgram(const std::vector<std::string>& arguments)
{
    const Command commands[] = {IdentifyCommand(), HeaderCommand(), AnalyseCommand(),
        CheckCommand(), RenderCommand(), ReportCommand(), ExportCommand(), UnpackCommand(),
        PackCommand(), ConvertCommand(), ErrorCommand()};
    CommandLine line({kCommandLineProgram, "What the viewer shows of test files, for scripts.",
        VIREO_VERSION,
        "vireo-cli COMMAND --help tells the options of a command; behind -- every argument is a "
        "file. Exit status: 0 every file is done, 1 at least one file failed (the others are "
        "done), 2 bad usage."});
    Settings settings;
    for (const Command& command : commands)
        command.addOptions(line.AddCommand(command.name, command.summary), settings);
    if (const auto exitStatus =
            line.Read(ShellExpandsPatterns() ? arguments : WithPatternsExpanded(arguments)))
        return *exitStatus;
    const Command& chosen = commands[line.ChosenCommand()];
    return chosen.run ? RunWithLimits(settings, chosen.run) : Draw(chosen, settings, arguments);
}

} // namespace vireo
