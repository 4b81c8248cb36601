#include "cli/Program.h"

#include "cli/Command.h"
#include "cli/Options.h"
#include "cli/Reporter.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cstdio>

namespace vireo {

namespace {

void Print(const std::string& text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
}

/// The command line's grammar: one command, with its own options.
class Grammar {
public:
    Grammar()
    {
        m_app.name("vireo-cli");
        m_app.set_version_flag("--version", "vireo-cli " VIREO_VERSION);
        m_app.require_subcommand(1);
        m_app.allow_windows_style_options(false);
        m_app.get_formatter()->label("SUBCOMMAND", "COMMAND");
        for (const Command& command : m_commands) {
            CLI::App* const added = m_app.add_subcommand(command.name, command.summary);
            command.addOptions(*added->group("Commands"), m_settings);
        }
    }

    /// Reads the arguments and does what they say.
    int Run(const std::vector<std::string>& arguments)
    {
        try {
            Parse(arguments);
        } catch (const CLI::CallForHelp&) {
            Print(m_app.help());
            return kExitDone;
        } catch (const CLI::CallForVersion& version) {
            Print(std::string(version.what()) + '\n');
            return kExitDone;
        } catch (const CLI::Error& error) {
            PrintError(std::string(error.what()) + " (see vireo-cli --help)");
            return kExitBadUsage;
        }
        const auto chosen = std::find_if(m_commands.begin(), m_commands.end(),
            [this](const Command& command) { return m_app.got_subcommand(command.name); });
        return chosen->run(m_settings);
    }

private:
    void Parse(const std::vector<std::string>& arguments)
    {
        if (arguments.empty())
            throw CLI::RequiredError("A command");
        const bool isKnown = std::any_of(m_commands.begin(), m_commands.end(),
            [&](const Command& command) { return command.name == arguments[0]; });
        if (!isKnown && !arguments[0].starts_with('-'))
            throw CLI::ParseError(
                "There is no command " + arguments[0], CLI::ExitCodes::ExtrasError);
        std::vector<std::string> guarded = GuardArguments(arguments);
        // The library takes them from the back.
        std::reverse(guarded.begin(), guarded.end());
        m_app.parse(std::move(guarded));
    }

    CLI::App m_app{"What the viewer shows of test files, for scripts."};
    Settings m_settings;
    std::array<Command, 5> m_commands{
        IdentifyCommand(), HeaderCommand(), AnalyseCommand(), RenderCommand(), ExportCommand()};
};

} // namespace

int RunProgram(const std::vector<std::string>& arguments)
{
    return Grammar().Run(arguments);
}

} // namespace vireo
