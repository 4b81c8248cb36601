#include "cli/Command.h"
#include "cli/CommandLine.h"
#include "cli/Options.h"
#include "platform/Path.h"

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

Refusal ChooseFormat(Settings& settings)
{
    const std::string extension = SplitPath(Utf8FromPath(settings.output)).extension;
    const Refusal refusal = Choose(kFormats, extension, settings.format);
    return refusal.empty() ? refusal : "The extension: " + refusal;
}

Refusal CheckScale(const Settings& settings)
{
    const PictureSize size = settings.ScaledSize();
    const bool fits = std::max(size.width, size.height) <= kLongestSide;
    return fits ? "" : "the picture would be larger than 16384 pixels";
}

constexpr int kAny = std::numeric_limits<int>::max();

void AddViewOptions(CommandOptions& command, Settings& settings)
{
    command.AddChoice("--camera A..H",
        "The camera shown; without it, the whole line (PDF: the camera of the detail views)",
        kCameras, settings.camera);
    command.AddChoice("--color COLOR",
        "The plane shown, or all: red, green, blue, gray, all (default: the viewer's)", kColours,
        settings.colour);
    command.AddNumber("--zoom N", "So many times as large, about the middle (default: 1)",
        {1, kAny}, settings.zoom);
    command.AddNumber("--view N", "Which of its views, in kinds that have several (default: 0)",
        {0, kAny}, settings.view);
    command.AddNumber("--list PAGE",
        "Instead of the plot, a page of the text about the file, counted from 1: the report of a "
        "tonal resolution, else the lines that are printed above the plot",
        {1, kAny}, settings.listPage);
    command.AddFlag("--fit", "The whole picture, as large as the size allows", settings.isWhole);
}

void AddSizeOptions(CommandOptions& command, Settings& settings)
{
    constexpr int kLargestScale = 16;
    AddSizeOption(command,
        "Width and height in pixels (default: 1600x500, of pictures 1600x1000); a PDF's plot is "
        "scaled to the paper",
        settings.givenSize);
    command.AddNumber("--scale N",
        "Draw a PNG as a screen of this scale does: lines and text N times as many pixels large, "
        "in a file of N times the size (default: 1)",
        {1, kLargestScale}, settings.scale);
    command.AddCheck("--scale", [&settings] { return CheckScale(settings); });
}

void AddOptions(CommandOptions& command, Settings& settings)
{
    AddFileArgument(command, settings);
    AddOutputOption(command, settings, "The picture to write: a .png, .svg or .pdf", ChooseFormat);
    AddKindOption(command, settings);
    AddLineOption(command, settings);
    AddViewOptions(command, settings);
    AddUnitOption(command, settings);
    AddSweepOption(command, settings);
    AddSizeOptions(command, settings);
    AddPaperOption(command, settings);
    AddLimitsOption(command, settings);
}

} // namespace

Command RenderCommand()
{
    return {"render", "The viewer's plot as a picture or a printed page", AddOptions, nullptr};
}

} // namespace vireo
