#include "cli/Command.h"
#include "cli/FileRun.h"
#include "cli/Options.h"
#include "cli/TifFormOptions.h"
#include "imagefile/TifConversion.h"
#include "platform/Path.h"

#include <CLI/CLI.hpp>

#include <string>
#include <system_error>

namespace vireo {

namespace {

/// Profiles are looked up in the system's folders; one that lies here goes first.
void TakeProfile(Settings& settings, const std::string& name)
{
    const std::filesystem::path path = PathFromUtf8(WithoutGuard(name));
    std::error_code error;
    const bool isHere = std::filesystem::exists(path, error);
    settings.conversion.profile = isHere ? std::filesystem::absolute(path, error) : path;
}

void AddOptions(CLI::App& command, Settings& settings)
{
    constexpr int kLastPage = 65'535;
    TifConversion& conversion = settings.conversion;
    AddFileArgument(command, settings);
    AddOutputOption(command, settings, "The TIFF to write");
    AddTifFormOptions(command, Compression::Optional, conversion.compression, conversion.predictor);
    command.add_option("--page", conversion.page, "The page to write, counted from 1 (default: 1)")
        ->transform(WholeNumber(1, kLastPage))
        ->type_name("N");
    command
        .add_option_function<std::string>(
            "--icc", [&settings](const std::string& name) { TakeProfile(settings, name); },
            "The ICC profile to put in, a file here or in the system's folders of colour profiles "
            "(default: the page's own)")
        ->type_name("PROFILE");
}

int Run(const Settings& settings)
{
    return RunOverFiles(settings, [&settings](const Subject& subject) {
        TifConversion conversion = settings.conversion;
        conversion.input = subject.path;
        conversion.output = settings.output;
        return FileResult{{}, ConvertTif(conversion)};
    });
}

} // namespace

Command ConvertCommand()
{
    return {"convert", "A page of a TIFF written anew, compressed in another way", AddOptions, Run};
}

} // namespace vireo
