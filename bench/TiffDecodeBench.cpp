#include "bench/BenchCommand.h"
#include "bench/Figures.h"
#include "bench/TiffPicture.h"
#include "bench/Timing.h"
#include "figures/Json.h"
#include "platform/Path.h"

namespace vireo {

namespace {

void AddOptions(CommandOptions& command, BenchSettings& settings)
{
    constexpr int kMostPages = 65'535;
    AddBenchOptions(command, settings, Presence::Required);
    command.AddNumber(
        "--page N", "The page, counted from 1 (default: 1)", {1, kMostPages}, settings.page);
}

FileResult Run(const BenchSettings& settings)
{
    const std::filesystem::path file = PathFromUtf8(settings.file);
    TiffPicture picture;
    const auto decode = [&] { return picture.Decode(file, settings.page); };
    // The first time makes the picture's memory and finds out whether the file can be read.
    if (const ImageResult result = decode(); result != ImageResult::Ok)
        return {{}, std::string(Describe(result))};
    ImageResult result = ImageResult::Ok;
    const auto seconds = TimesOf(settings.repeat, [&] { result = decode(); });
    if (result != ImageResult::Ok)
        return {{}, std::string(Describe(result))};
    return {ToLine(PixelFigures(seconds, picture.Bytes(), FileBytes(file), 1)), {}};
}

} // namespace

BenchCommand TiffDecodeBench()
{
    return {"tiff-decode", "A page of a TIFF file, every row decoded into one picture", AddOptions,
        Run};
}

} // namespace vireo
