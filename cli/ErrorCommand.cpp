#include "cli/Command.h"
#include "cli/CommandLine.h"
#include "cli/Program.h"
#include "cli/Settings.h"
#include "cli/Shell.h"
#include "errors/ErrorTable.h"
#include "figures/Json.h"

#include <limits>
#include <string>

namespace vireo {

namespace {

void AddOptions(CommandOptions& command, Settings& settings)
{
    command.AddNumber({"CODE", Presence::Required}, "The error code, in decimal digits",
        {0, std::numeric_limits<std::uint32_t>::max()}, settings.errorCode);
    command.AddFlag(
        "--plate", "The text for scanners with a plate on a moving table", settings.plateScanner);
}

int Run(const Settings& settings)
{
    const ErrorRow* const row = FindError(settings.errorCode);
    if (!row) {
        PrintError(
            kCommandLineProgram, std::to_string(settings.errorCode) + ": no such error code");
        return kExitFileFailed;
    }
    Json object;
    object["code"] = row->code;
    object["severity"] = row->severity;
    object["class"] = FileText(ErrorClassName(row->severity));
    object["text"] =
        FileText(row->TextFor(settings.plateScanner ? ScannerFeed::Plate : ScannerFeed::Sheet));
    return PrintAll(kCommandLineProgram, ToLine(object) + '\n');
}

} // namespace

Command ErrorCommand()
{
    return {"error", "What an error code of the scanner software means", AddOptions, Run};
}

} // namespace vireo
