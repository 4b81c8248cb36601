#include "cli/Command.h"
#include "cli/CommandLine.h"
#include "cli/FileRun.h"
#include "cli/Options.h"
#include "figures/KitbagJson.h"
#include "platform/Path.h"
#include "platform/Text.h"
#include "platform/WorkPaths.h"
#include "testfile/DumpUnpacker.h"

#include <system_error>

namespace vireo {

namespace {

void AddOptions(CommandOptions& command, Settings& settings)
{
    AddFileArgument(command, settings);
    command.AddText("-d,--directory FOLDER",
        "Where the members go; made when it is missing (default: the dump's own folder)",
        [&settings](const std::string& folder) {
            settings.output = PathFromUtf8(folder);
            return Refusal(folder.empty() ? "There is no folder without a name" : "");
        });
}

/// Makes the folder if it is not there; the reason when there is none then.
std::string MakeFolder(const std::filesystem::path& folder)
{
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (std::filesystem::is_directory(folder, error))
        return {};
    return "Cannot make the folder " + Utf8FromPath(folder);
}

FileResult Unpack(const Subject& subject, const Settings& settings)
{
    PackedDump dump;
    if (std::string failure = OpenDump(subject, dump); !failure.empty())
        return {{}, std::move(failure)};
    const auto folder = settings.output.empty() ? FolderOf(subject.path) : settings.output;
    if (std::string failure = MakeFolder(folder); !failure.empty())
        return {{}, std::move(failure)};
    const auto description =
        IsTestStation(SystemSettingsFolders()) ? DumpDescription::Kept : DumpDescription::Skipped;
    WorkProgress progress;
    const UnpackReport report = UnpackDump(dump, folder, description, progress);
    return {{}, Utf8FromWindows1252(DescribeLeftOut(report))};
}

int Run(const Settings& settings)
{
    return RunOverFiles(settings, Unpack);
}

} // namespace

Command UnpackCommand()
{
    return {"unpack", "The members of a packed dump, as files", AddOptions, Run};
}

} // namespace vireo
