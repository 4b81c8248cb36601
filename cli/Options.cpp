#include "cli/Options.h"

#include "cli/Choices.h"
#include "cli/CommandLineReader.h"
#include "platform/Path.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

namespace vireo {

namespace {

CLI::Option* AddFiles(
    CLI::App& command, Settings& settings, FolderRule folders, const char* description)
{
    const auto take = [&settings, folders](const std::vector<std::string>& files) {
        std::transform(
            files.begin(), files.end(), std::back_inserter(settings.files), WithoutGuard);
        // --recursive may have been read before.
        settings.folders = std::max(settings.folders, folders);
    };
    return command.add_option_function<std::vector<std::string>>("FILE", take, description)
        ->required()
        ->type_name("");
}

} // namespace

void AddFilesArgument(CLI::App& command, Settings& settings)
{
    AddFiles(
        command, settings, FolderRule::Files, "The files; a folder stands for the files in it");
    command
        .add_flag_callback(
            "-r,--recursive", [&settings] { settings.folders = FolderRule::AllBelow; },
            "A folder stands for all files below it, those in its folders too")
        ->disable_flag_override();
}

void AddFileArgument(CLI::App& command, Settings& settings)
{
    AddFiles(command, settings, FolderRule::Refused, "The file")->expected(1);
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

CLI::Option* AddLimitsOption(CLI::App& command, Settings& settings)
{
    const auto take = [&settings](const std::string& path) {
        settings.limits = PathFromUtf8(WithoutGuard(path));
    };
    return command.add_option_function<std::string>("--limits", take, "The limits of the figures")
        ->type_name("LIMITS");
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
        ->transform(WholeNumber(0))
        ->type_name("N");
}

void AddSweepOption(CLI::App& command, Settings& settings)
{
    const auto take = [&settings](std::int64_t number) { settings.sweep = number; };
    command
        .add_option_function<std::int64_t>("--sweep", take,
            "The sweep of a star test, counted from 0 (default: the one the viewer selects)")
        ->transform(WholeNumber(0))
        ->type_name("N");
}

void AddPaperOption(CLI::App& command, Settings& settings)
{
    static constexpr Choice<PaperSize> kPapers[] = {
        {"A4", PaperSize::A4}, {"A3", PaperSize::A3}, {"Letter", PaperSize::Letter}};
    const auto take = [&settings](const std::string& text) {
        settings.paper = Choose(kPapers, "--page", text);
    };
    command
        .add_option_function<std::string>(
            "--page", take, "The paper of a PDF: A4, A3 or Letter (default: A4)")
        ->type_name("PAPER");
}

void AddUnitOption(CLI::App& command, Settings& settings)
{
    const auto take = [&settings](const std::string& name) {
        settings.unit = UnitFromName(name);
        if (!settings.unit)
            throw CLI::ValidationError("--unit", "must be one of SU, Inch, CM, not " + name);
    };
    command
        .add_option_function<std::string>("--unit", take,
            "The unit of positions on a noise line: SU, Inch, CM (default: the viewer's)")
        ->type_name("UNIT");
}

} // namespace vireo
