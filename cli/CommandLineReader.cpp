#include "cli/CommandLineReader.h"

#include "cli/HelpText.h"
#include "platform/Text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <memory>

namespace vireo {

std::string OnOneLine(std::string_view text)
{
    std::string line(text);
    for (char& character : line) {
        const auto code = static_cast<unsigned char>(character);
        constexpr unsigned char kDelete = 127;
        if (code < ' ' || code == kDelete)
            character = ' ';
    }
    return line;
}

void PrintError(std::string_view program, std::string_view text)
{
    const std::string line = std::string(program) + ": " + OnOneLine(text) + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

CLI::App* AddCommand(CLI::App& app, const char* name, const char* summary)
{
    app.require_subcommand(1);
    // A command takes over its program's formatter.
    app.formatter(std::make_shared<HelpText>());
    CLI::App* const command = app.add_subcommand(name, summary)->group("Commands");
    // A file's name may begin with '/'.
    return command->allow_windows_style_options(false);
}

namespace {

/// Marks an argument as a plain text: put before it, it hides a leading '-' or '['. No argument can
/// hold it.
constexpr char kGuard = '\0';

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

void RequireKnownCommand(const CLI::App& app, const std::vector<std::string>& arguments)
{
    if (arguments.empty())
        throw CLI::RequiredError("A command");
    const auto commands = app.get_subcommands([](const CLI::App*) { return true; });
    const bool isKnown = std::any_of(commands.begin(), commands.end(),
        [&](const CLI::App* command) { return command->get_name() == arguments[0]; });
    if (isKnown || app.get_option_no_throw(arguments[0]))
        return;
    const char* const what = arguments[0].starts_with('-') ? "option " : "command ";
    throw CLI::ParseError(
        std::string("There is no ") + what + arguments[0], CLI::ExitCodes::ExtrasError);
}

void Print(const std::string& text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
}

} // namespace

std::optional<int> ReadCommandLine(CLI::App& app, const std::vector<std::string>& arguments)
{
    try {
        RequireKnownCommand(app, arguments);
        std::vector<std::string> guarded = GuardArguments(arguments);
        // The library takes them from the back.
        std::reverse(guarded.begin(), guarded.end());
        app.parse(std::move(guarded));
    } catch (const CLI::CallForHelp&) {
        Print(app.help());
        return kExitDone;
    } catch (const CLI::CallForVersion& version) {
        Print(std::string(version.what()) + '\n');
        return kExitDone;
    } catch (const CLI::Error& error) {
        PrintError(
            app.get_name(), std::string(error.what()) + " (see " + app.get_name() + " --help)");
        return kExitBadUsage;
    }
    return std::nullopt;
}

std::string WithoutGuard(std::string argument)
{
    if (argument.starts_with(kGuard))
        argument.erase(0, 1);
    return argument;
}

namespace {

/// The number of a text of decimal digits only, if it lies in the range.
std::optional<std::int64_t> ParseWholeNumber(
    std::string_view text, std::int64_t lowest, std::int64_t highest)
{
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end || number < lowest || number > highest)
        return std::nullopt;
    return number;
}

} // namespace

CLI::Validator WholeNumber(std::int64_t lowest, std::int64_t highest)
{
    const std::string range = highest == std::numeric_limits<std::int64_t>::max()
        ? Format("%lld or more", static_cast<long long>(lowest))
        : Format(
            "from %lld to %lld", static_cast<long long>(lowest), static_cast<long long>(highest));
    // Written anew because CLI11 would take 010 for eight.
    const auto check = [lowest, highest, range](std::string& text) -> std::string {
        const auto number = ParseWholeNumber(text, lowest, highest);
        if (!number)
            return "must be a whole number, " + range;
        text = std::to_string(*number);
        return {};
    };
    return {check, "", "whole number"};
}

std::optional<PictureSize> ParseSize(std::string_view text)
{
    const std::size_t cross = text.find('x');
    if (cross == std::string_view::npos)
        return std::nullopt;
    const auto width = ParseWholeNumber(text.substr(0, cross), 1, kLongestSide);
    const auto height = ParseWholeNumber(text.substr(cross + 1), 1, kLongestSide);
    if (!width || !height)
        return std::nullopt;
    return PictureSize{static_cast<int>(*width), static_cast<int>(*height)};
}

} // namespace vireo
