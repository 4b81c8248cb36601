#include "cli/Choices.h"
#include "cli/Command.h"
#include "cli/CommandLineReader.h"
#include "cli/Options.h"
#include "platform/Path.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <limits>
#include <string>

namespace vireo {

namespace {

constexpr Choice<PictureFormat> kFormats[] = {
    {".png", PictureFormat::Png}, {".svg", PictureFormat::Svg}, {".pdf", PictureFormat::Pdf}};

constexpr Choice<int> kCameras[] = {
    {"A", 0}, {"B", 1}, {"C", 2}, {"D", 3}, {"E", 4}, {"F", 5}, {"G", 6}, {"H", 7}};

constexpr Choice<ShownColour> kColours[] = {{"red", ShownColour::Red},
    {"green", ShownColour::Green}, {"blue", ShownColour::Blue}, {"gray", ShownColour::Gray},
    {"all", ShownColour::All}};

void ChooseFormat(Settings& settings)
{
    const std::string extension = SplitPath(Utf8FromPath(settings.output)).extension;
    settings.format = Choose(kFormats, "--output: The extension", extension);
}

void AddViewOptions(CLI::App& command, Settings& settings)
{
    const auto takeCamera = [&settings](const std::string& text) {
        settings.camera = Choose(kCameras, "--camera", text);
    };
    command
        .add_option_function<std::string>("--camera", takeCamera,
            "The camera shown; without it, the whole line (PDF: the camera of the detail views)")
        ->type_name("A..H");
    const auto takeColour = [&settings](const std::string& text) {
        settings.colour = Choose(kColours, "--color", text);
    };
    command
        .add_option_function<std::string>("--color", takeColour,
            "The plane shown, or all: red, green, blue, gray, all (default: the viewer's)")
        ->type_name("COLOR");
    command
        .add_option(
            "--zoom", settings.zoom, "So many times as large, about the middle (default: 1)")
        ->transform(WholeNumber(1, std::numeric_limits<int>::max()))
        ->type_name("N");
    const auto takeView = [&settings](int number) { settings.view = number; };
    command
        .add_option_function<int>(
            "--view", takeView, "Which of its views, in kinds that have several (default: 0)")
        ->transform(WholeNumber(0, std::numeric_limits<int>::max()))
        ->type_name("N");
    const auto takeList = [&settings](int page) { settings.listPage = page; };
    command
        .add_option_function<int>("--list", takeList,
            "Instead of the plot, a page of the text about the file, counted from 1: the report of "
            "a tonal resolution, else the lines that are printed above the plot")
        ->transform(WholeNumber(1, std::numeric_limits<int>::max()))
        ->type_name("PAGE");
    command.add_flag("--fit", settings.isWhole, "The whole picture, as large as the size allows")
        ->disable_flag_override();
}

void AddOptions(CLI::App& command, Settings& settings)
{
    constexpr int kLargestScale = 16;
    AddFileArgument(command, settings);
    AddOutputOption(command, settings, "The picture to write: a .png, .svg or .pdf", ChooseFormat);
    AddKindOption(command, settings);
    AddLineOption(command, settings);
    AddViewOptions(command, settings);
    AddUnitOption(command, settings);
    AddSweepOption(command, settings);

    const auto takeSize = [&settings](const std::string& text) {
        settings.givenSize = ParseSize(text);
        if (!settings.givenSize)
            throw CLI::ValidationError("--size", kSizeRule);
    };
    command
        .add_option_function<std::string>("--size", takeSize,
            "Width and height in pixels (default: 1600x500, of pictures 1600x1000); a PDF's plot "
            "is scaled to the paper")
        ->type_name("WxH");
    command
        .add_option("--scale", settings.scale,
            "Draw a PNG as a screen of this scale does: lines and text N times as many pixels "
            "large, in a file of N times the size (default: 1)")
        ->transform(WholeNumber(1, kLargestScale))
        ->type_name("N");
    command.callback([&settings] {
        const PictureSize size = settings.ScaledSize();
        if (std::max(size.width, size.height) > kLongestSide)
            throw CLI::ValidationError("--scale", "the picture would be larger than 16384 pixels");
    });
    AddPaperOption(command, settings);
    AddLimitsOption(command, settings);
}

} // namespace

Command RenderCommand()
{
    return {"render", "The viewer's plot as a picture or a printed page", AddOptions, nullptr};
}

} // namespace vireo
