#include "cli/Command.h"
#include "cli/Options.h"
#include "platform/Path.h"
#include "platform/Text.h"

namespace vireo {

namespace {

Refusal RequirePdf(Settings& settings)
{
    settings.format = PictureFormat::Pdf;
    const std::string extension = SplitPath(Utf8FromPath(settings.output)).extension;
    return EqualsIgnoringCase(extension, ".pdf") ? ""
                                                 : "The extension must be .pdf, not " + extension;
}

void AddOptions(CommandOptions& command, Settings& settings)
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
