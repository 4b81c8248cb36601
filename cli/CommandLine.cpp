#include "cli/CommandLine.h"

#include "cli/HelpText.h"
#include "cli/Shell.h"
#include "platform/Path.h"
#include "platform/Text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <limits>
#include <utility>

namespace vireo {

namespace {

/// Marks an argument as what it is, a text: put before it, it hides from the library a leading '-',
/// and a '[' that with a ']' would make it a list of several. No argument can hold it.
constexpr char kGuard = '\0';

/// Marks what stands behind "--", which itself is taken out, or in brackets.
std::vector<std::string> GuardArguments(const std::vector<std::string>& arguments)
{
    std::vector<std::string> guarded;
    bool optionsEnded = false;
    for (const std::string& argument : arguments) {
        if (!optionsEnded && argument == "--") {
            optionsEnded = true;
            continue;
        }
        const bool isList = argument.starts_with('[') && argument.ends_with(']');
        guarded.push_back(optionsEnded || isList ? kGuard + argument : argument);
    }
    return guarded;
}

std::string WithoutGuard(std::string argument)
{
    if (argument.starts_with(kGuard))
        argument.erase(0, 1);
    return argument;
}

std::string FirstName(const std::string& names)
{
    return names.substr(0, names.find(','));
}

void RequireNone(const Refusal& refusal, const std::string& name)
{
    if (!refusal.empty())
        throw CLI::ValidationError(name, refusal);
}

CLI::Validator WholeNumber(const NumberRange& range)
{
    const auto lowest = static_cast<long long>(range.lowest);
    const auto highest = static_cast<long long>(range.highest);
    const std::string wording = range.highest == std::numeric_limits<std::int64_t>::max()
        ? Format("%lld or more", lowest)
        : Format("from %lld to %lld", lowest, highest);
    // Written anew because CLI11 would take 010 for eight.
    const auto check = [range, wording](std::string& text) -> std::string {
        const auto number = ParseWholeNumber(WithoutGuard(text), range);
        if (!number)
            return "must be a whole number, " + wording;
        text = std::to_string(*number);
        return {};
    };
    return {check, "", "whole number"};
}

/// Adds what takes a `Value`: one text, one number or texts.
template <typename Value>
CLI::Option* Add(CLI::App& command, const OptionName& option, const std::string& description,
    const std::function<void(const Value&)>& take)
{
    return command.add_option_function<Value>(option.names, take, description)
        ->required(option.presence == Presence::Required)
        ->type_name(option.value);
}

} // namespace

OptionName::OptionName(const char* spelling, Presence isThere) : names(spelling), presence(isThere)
{
    const std::size_t blank = names.find(' ');
    if (blank == std::string::npos)
        return;
    value = names.substr(blank + 1);
    names.erase(blank);
}

void CommandOptions::AddFlag(const char* names, const char* description, bool& isGiven)
{
    AddFlag(names, description, [&isGiven] { isGiven = true; });
}

void CommandOptions::AddFlag(const char* names, const char* description, std::function<void()> take)
{
    m_command.add_flag_callback(names, std::move(take), description)->disable_flag_override();
}

void CommandOptions::AddText(
    const OptionName& option, const std::string& description, TakeText take)
{
    Add<std::string>(m_command, option, description,
        [name = FirstName(option.names), take = std::move(take)](
            const std::string& text) { RequireNone(take(WithoutGuard(text)), name); });
}

void CommandOptions::AddWholeNumber(const OptionName& option, const std::string& description,
    const NumberRange& range, std::function<void(std::int64_t)> take)
{
    Add<std::int64_t>(m_command, option, description, std::move(take))
        ->transform(WholeNumber(range));
}

void CommandOptions::AddName(
    const OptionName& option, const std::string& description, std::string& name)
{
    AddText(option, description, [&name](const std::string& text) {
        name = text;
        return Refusal();
    });
}

void CommandOptions::AddName(
    const OptionName& option, const std::string& description, std::filesystem::path& path)
{
    AddText(option, description, [&path](const std::string& text) {
        path = PathFromUtf8(text);
        return Refusal();
    });
}

void CommandOptions::AddNames(
    const OptionName& option, const std::string& description, NameCount count, TakeNames take)
{
    using Names = std::vector<std::string>;
    const auto takeGuarded = [take = std::move(take)](Names names) {
        std::ranges::transform(names, names.begin(), WithoutGuard);
        take(std::move(names));
    };
    CLI::Option* const added = Add<Names>(m_command, option, description, takeGuarded);
    if (count == NameCount::One)
        added->expected(1);
}

void CommandOptions::AddCheck(const std::string& option, std::function<Refusal()> check)
{
    m_command.callback([option, check = std::move(check)] { RequireNone(check(), option); });
}

void CommandOptions::SetFooter(const std::string& text)
{
    m_command.footer(text);
}

CommandLine::CommandLine(const ProgramText& program)
    : m_program(std::make_unique<CLI::App>(program.description, program.name))
{
    const std::string version = program.version;
    if (!version.empty())
        m_program->set_version_flag(
            "--version", program.name + (' ' + version), "Print the version and exit");
    m_program->footer(program.footer);
    m_program->require_subcommand(1);
    m_program->formatter(MakeHelpText());
}

CommandLine::~CommandLine() = default;

CommandOptions& CommandLine::AddCommand(const char* name, const char* summary)
{
    CLI::App* const command = m_program->add_subcommand(name, summary);
    command->group("Commands");
    // A file's name may begin with '/'.
    command->allow_windows_style_options(false);
    command->set_help_flag("-h,--help", "Print this help message and exit")
        ->disable_flag_override();
    // It has taken over the program's.
    command->footer("");
    return m_commands.emplace_back(*command);
}

namespace {

std::vector<const CLI::App*> CommandsOf(const CLI::App& program)
{
    return program.get_subcommands([](const CLI::App*) { return true; });
}

void RequireKnownCommand(const CLI::App& program, const std::vector<std::string>& arguments)
{
    if (arguments.empty())
        throw CLI::RequiredError("A command");
    const bool isKnown = std::ranges::any_of(CommandsOf(program),
        [&](const CLI::App* command) { return command->get_name() == arguments[0]; });
    if (isKnown || program.get_option_no_throw(arguments[0]))
        return;
    const char* const what = arguments[0].starts_with('-') ? "option " : "command ";
    throw CLI::ParseError(
        std::string("There is no ") + what + arguments[0], CLI::ExitCodes::ExtrasError);
}

/// An option that no command has; empty when all are known. It is told rather than what is missing
/// beside it, and files that stand where none is taken.
std::string UnknownOption(const CLI::App& program)
{
    for (const CLI::App* command : program.get_subcommands()) {
        for (const std::string& argument : command->remaining()) {
            if (argument.starts_with('-'))
                return argument.substr(0, argument.find('='));
        }
    }
    return {};
}

/// What is wrong with the command line, in our words where the library's are for programmers.
std::string Describe(const CLI::App& program, const CLI::Error& error)
{
    if (const std::string unknown = UnknownOption(program); !unknown.empty())
        return "There is no option " + unknown;
    const std::string text = error.what();
    const std::string name = text.substr(0, text.find_first_of(": "));
    if (text.find(": At Most 1 required") != std::string::npos)
        return name.starts_with('-') ? name + " is given more than once"
                                     : "There is more than one " + name;
    if (text.find(" disallowed flag override") != std::string::npos)
        return "--" + name + " takes no value";
    return text;
}

} // namespace

std::optional<int> CommandLine::Read(const std::vector<std::string>& arguments)
{
    const std::string name = m_program->get_name();
    try {
        RequireKnownCommand(*m_program, arguments);
        std::vector<std::string> guarded = GuardArguments(arguments);
        // The library takes them from the back.
        std::ranges::reverse(guarded);
        m_program->parse(std::move(guarded));
    } catch (const CLI::CallForHelp&) {
        return PrintAll(name, m_program->help());
    } catch (const CLI::CallForVersion& version) {
        return PrintAll(name, std::string(version.what()) + '\n');
    } catch (const CLI::Error& error) {
        PrintError(name, Describe(*m_program, error) + " (see " + name + " --help)");
        return kExitBadUsage;
    }
    return std::nullopt;
}

std::size_t CommandLine::ChosenCommand() const
{
    const auto isChosen = [](const CLI::App* command) { return command->parsed(); };
    const std::vector<const CLI::App*> commands = CommandsOf(*m_program);
    return static_cast<std::size_t>(std::ranges::find_if(commands, isChosen) - commands.begin());
}

} // namespace vireo
