#include "cli/Options.h"

#include "platform/Path.h"
#include "platform/Text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>
#include <string>
#include <thread>
#include <vector>

namespace vireo {

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

namespace {

/// What GuardArguments puts before an argument; none can hold it.
constexpr char kGuard = '\0';

std::string WithoutGuard(std::string argument)
{
    if (argument.starts_with(kGuard))
        argument.erase(0, 1);
    return argument;
}

CLI::Option* AddFiles(CLI::App& command, Settings& settings, const char* description)
{
    const auto take = [&settings](const std::vector<std::string>& files) {
        std::transform(
            files.begin(), files.end(), std::back_inserter(settings.files), WithoutGuard);
    };
    return command.add_option_function<std::vector<std::string>>("FILE", take, description)
        ->required()
        ->type_name("");
}

} // namespace

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

void AddFilesArgument(CLI::App& command, Settings& settings)
{
    AddFiles(command, settings, "The files, at least one");
}

void AddFileArgument(CLI::App& command, Settings& settings)
{
    AddFiles(command, settings, "The file")->expected(1);
}

void AddOutputOption(CLI::App& command, Settings& settings, const char* description,
    void (*check)(Settings& settings))
{
    const auto take = [&settings, check](const std::string& path) {
        settings.output = PathFromUtf8(WithoutGuard(path));
        if (check)
            check(settings);
    };
    command.add_option_function<std::string>("-o,--output", take, description)
        ->required()
        ->type_name("OUT");
}

void AddJobsOption(CLI::App& command, Settings& settings)
{
    constexpr int kMostJobs = 1024;
    settings.jobs = std::max(std::thread::hardware_concurrency(), 1U);
    command
        .add_option("--jobs", settings.jobs,
            "Files worked on at the same time (default: the number of cores)")
        ->transform(WholeNumber(1, kMostJobs))
        ->type_name("N");
}

void AddKindOption(CLI::App& command, Settings& settings)
{
    const auto take = [&settings](const std::string& id) {
        settings.kind = KindFromId(id);
        if (!settings.kind || settings.kind == FileKind::Unknown)
            throw CLI::ValidationError("--as", "There is no kind " + id);
    };
    std::string kinds = "Kinds:";
    for (const KindNames& names : AllKinds()) {
        if (names.kind != FileKind::Unknown)
            kinds.append(" ").append(names.id);
    }
    command.footer(kinds);
    command
        .add_option_function<std::string>(
            "--as", take, "Take every file as this kind instead of recognising it")
        ->type_name("KIND");
}

void AddLineOption(CLI::App& command, Settings& settings)
{
    command.add_option("--line", settings.line, "The scan line, counted from 0 (default: 0)")
        ->transform(WholeNumber(0, std::numeric_limits<std::int64_t>::max()))
        ->type_name("N");
}

std::optional<Settings::Size> ParseSize(std::string_view text)
{
    // A painter's coordinates end at 32767; 16 Ki squared is a picture of 1 GiB.
    constexpr std::int64_t kLongestSide = 16384;
    const std::size_t cross = text.find('x');
    if (cross == std::string_view::npos)
        return std::nullopt;
    const auto width = ParseWholeNumber(text.substr(0, cross), 1, kLongestSide);
    const auto height = ParseWholeNumber(text.substr(cross + 1), 1, kLongestSide);
    if (!width || !height)
        return std::nullopt;
    return Settings::Size{static_cast<int>(*width), static_cast<int>(*height)};
}

} // namespace vireo
