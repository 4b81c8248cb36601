#include "cli/Command.h"
#include "cli/Options.h"
#include "platform/Path.h"
#include "platform/Text.h"

#include <CLI/CLI.hpp>

namespace vireo {

namespace {

void RequirePdf(Settings& settings)
{
    const std::string extension = SplitPath(Utf8FromPath(settings.output)).extension;
    if (!EqualsIgnoringCase(extension, ".pdf"))
        throw CLI::ValidationError("--output", "The extension must be .pdf, not " + extension);
    settings.format = PictureFormat::Pdf;
}

void AddOptions(CLI::App& command, Settings& settings)
{
    AddFilesArgument(command, settings);
    AddOutputOption(command, settings, "The report to write, a .pdf", RequirePdf);
    AddLimitsOption(command, settings);
    AddKindOption(command, settings);
    AddLineOption(command, settings);
    AddUnitOption(command, settings);
    AddPaperOption(command, settings);
    AddJobsOption(command, settings);
}

} // namespace

Command ReportCommand()
{
    return {"report", "All files in one PDF: a table, and the printed page of each", AddOptions,
        nullptr};
}

} // namespace vireo
