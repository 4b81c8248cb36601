#include "bench/Figures.h"

#include "bench/Timing.h"
#include "platform/PositionalFile.h"

namespace vireo {

namespace {

constexpr double kBytesPerMegabyte = 1e6;

Json Figures(const std::vector<double>& seconds, std::int64_t measured, std::int64_t pixels,
    std::int64_t file, int threads)
{
    Json object;
    object["mb_per_s"] = static_cast<double>(measured) / kBytesPerMegabyte / Median(seconds);
    object["seconds_min"] = Smallest(seconds);
    object["seconds_median"] = Median(seconds);
    object["pixels_bytes"] = pixels;
    object["file_bytes"] = file;
    object["threads"] = threads;
    return object;
}

} // namespace

Json PixelFigures(
    const std::vector<double>& seconds, std::size_t pixels, std::int64_t fileBytes, int threads)
{
    const auto bytes = static_cast<std::int64_t>(pixels);
    return Figures(seconds, bytes, bytes, fileBytes, threads);
}

Json FileFigures(const std::vector<double>& seconds, std::int64_t fileBytes, int threads)
{
    return Figures(seconds, fileBytes, 0, fileBytes, threads);
}

std::int64_t FileBytes(const std::filesystem::path& file)
{
    PositionalFile opened;
    return opened.Open(file) == FileStatus::Ok ? static_cast<std::int64_t>(opened.Size()) : 0;
}

} // namespace vireo
