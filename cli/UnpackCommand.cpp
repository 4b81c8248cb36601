#include "cli/Command.h"
#include "cli/CommandLineReader.h"
#include "cli/FileRun.h"
#include "cli/Options.h"
#include "figures/KitbagJson.h"
#include "platform/Path.h"
#include "platform/Text.h"
#include "platform/WorkPaths.h"
#include "testfile/DumpUnpacker.h"

#include <CLI/CLI.hpp>

#include <system_error>

namespace vireo {

namespace {

void AddOptions(CLI::App& command, Settings& settings)
{
    AddFileArgument(command, settings);
    const auto take = [&settings](const std::string& folder) {
        settings.output = PathFromUtf8(WithoutGuard(folder));
        if (settings.output.empty())
            throw CLI::ValidationError("-d", "There is no folder without a name");
    };
    command
        .add_option_function<std::string>("-d,--directory", take,
            "Where the members go; made when it is missing (default: the dump's own folder)")
        ->type_name("FOLDER");
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
    return RunOverFiles(
        settings, [&settings](const Subject& subject) { return Unpack(subject, settings); });
}

} // namespace

Command UnpackCommand()
{
    return {"unpack", "The members of a packed dump, as files", AddOptions, Run};
}

} // namespace vireo
