#include "cli/Options.h"

#include "platform/Path.h"

#include <algorithm>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace vireo {

void AddFilesArgument(CommandOptions& command, Settings& settings)
{
    command.AddNames({"FILE", Presence::Required}, "The files; a folder stands for the files in it",
        NameCount::Any, [&settings](std::vector<std::string> files) {
            settings.files = std::move(files);
            // --recursive may have been read before.
            settings.folders = std::max(settings.folders, FolderRule::Files);
        });
    command.AddFlag("-r,--recursive",
        "A folder stands for all files below it, those in its folders too",
        [&settings] { settings.folders = FolderRule::AllBelow; });
}

void AddFileArgument(CommandOptions& command, Settings& settings)
{
    command.AddNames({"FILE", Presence::Required}, "The file", NameCount::One,
        [&settings](std::vector<std::string> files) { settings.files = std::move(files); });
}

void AddOutputOption(CommandOptions& command, Settings& settings, const char* description,
    Refusal (*check)(Settings& settings))
{
    command.AddText({"--output,-o OUT", Presence::Required}, description,
        [&settings, check](const std::string& name) {
            settings.output = PathFromUtf8(name);
            if (name.empty())
                return Refusal("There is no file without a name");
            return check ? check(settings) : Refusal();
        });
}

void AddJobsOption(CommandOptions& command, Settings& settings)
{
    constexpr int kMostJobs = 1024;
    settings.jobs = std::max(std::thread::hardware_concurrency(), 1U);
    command.AddNumber("--jobs N", "Files worked on at the same time (default: the number of cores)",
        {1, kMostJobs}, settings.jobs);
}

void AddLimitsOption(CommandOptions& command, Settings& settings, Presence presence)
{
    command.AddText({"--limits LIMITS", presence}, "The limits of the figures",
        [&settings](const std::string& name) {
            settings.limits = PathFromUtf8(name);
            return Refusal(name.empty() ? "There is no file without a name" : "");
        });
}

void AddKindOption(CommandOptions& command, Settings& settings)
{
    std::string kinds = "Kinds:";
    for (const KindNames& names : AllKinds()) {
        if (names.kind != FileKind::Unknown)
            kinds.append(" ").append(names.id);
    }
    command.SetFooter(kinds);
    command.AddText("--as KIND", "Take every file as this kind instead of recognising it",
        [&settings](const std::string& id) {
            settings.kind = KindFromId(id);
            const bool isKnown = settings.kind.value_or(FileKind::Unknown) != FileKind::Unknown;
            return isKnown ? "" : "There is no kind " + id;
        });
}

void AddLineOption(CommandOptions& command, Settings& settings)
{
    command.AddNumber("--line N", "The scan line, counted from 0 (default: 0)", {0}, settings.line);
}

void AddSweepOption(CommandOptions& command, Settings& settings)
{
    command.AddNumber("--sweep N",
        "The sweep of a star test, counted from 0 (default: the one the viewer selects)", {0},
        settings.sweep);
}

void AddPaperOption(CommandOptions& command, Settings& settings)
{
    static constexpr Choice<PaperSize> kPapers[] = {
        {"A4", PaperSize::A4}, {"A3", PaperSize::A3}, {"Letter", PaperSize::Letter}};
    command.AddChoice("--page PAPER", "The paper of a PDF: A4, A3 or Letter (default: A4)", kPapers,
        settings.paper);
}

void AddUnitOption(CommandOptions& command, Settings& settings)
{
    command.AddText("--unit UNIT",
        "The unit of positions on a noise line: SU, Inch, CM (default: the viewer's)",
        [&settings](const std::string& name) {
            settings.unit = UnitFromName(name);
            return settings.unit ? "" : "must be one of SU, Inch, CM, not " + name;
        });
}

} // namespace vireo
