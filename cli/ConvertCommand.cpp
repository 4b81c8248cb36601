#include "cli/Command.h"
#include "cli/CommandLine.h"
#include "cli/FileRun.h"
#include "cli/Options.h"
#include "cli/TifFormOptions.h"
#include "imagefile/TifConversion.h"
#include "platform/Path.h"

#include <string>
#include <system_error>

namespace vireo {

namespace {

/// Profiles are looked up in the system's folders; one that lies here goes first.
std::filesystem::path ProfilePath(const std::string& name)
{
    const std::filesystem::path path = PathFromUtf8(name);
    std::error_code error;
    return std::filesystem::exists(path, error) ? FullPath(path) : path;
}

void AddOptions(CommandOptions& command, Settings& settings)
{
    constexpr int kLastPage = 65'535;
    TifConversion& conversion = settings.conversion;
    AddFileArgument(command, settings);
    AddOutputOption(command, settings, "The TIFF to write");
    AddTifFormOptions(command, Presence::Optional, conversion.compression, conversion.predictor);
    command.AddNumber("--page N", "The page to write, counted from 1 (default: 1)", {1, kLastPage},
        conversion.page);
    command.AddText("--icc PROFILE",
        "The ICC profile to put in, a file here or in the system's folders of colour profiles "
        "(default: the page's own)",
        [&conversion](const std::string& name) {
            conversion.profile = ProfilePath(name);
            return Refusal();
        });
}

FileResult Convert(const Subject& subject, const Settings& settings)
{
    TifConversion conversion = settings.conversion;
    conversion.input = subject.path;
    conversion.output = settings.output;
    return {{}, ConvertTif(conversion)};
}

int Run(const Settings& settings)
{
    return RunOverFiles(settings, Convert);
}

} // namespace

Command ConvertCommand()
{
    return {"convert", "A page of a TIFF written anew, compressed in another way", AddOptions, Run};
}

} // namespace vireo
