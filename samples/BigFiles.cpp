#include "samples/BigFiles.h"

#include "imagefile/TifPage.h"
#include "samples/NoiseSamples.h"
#include "samples/OscilloscopeSamples.h"
#include "samples/StarTestSamples.h"
#include "samples/StitchSamples.h"
#include "samples/TiffSamples.h"
#include "viewers/startest/StarTestWriter.h"

#include <algorithm>
#include <fstream>
#include <limits>
#include <vector>

namespace vireo {

namespace {

struct BigKind {
    std::string_view name;
    bool interleaved;
    bool oneLine;
};
constexpr BigKind kKinds[] = {
    {"oscilloscope", true, false},
    {"oscilloscope-gray", false, false},
    {"oscilloscope-line", true, true},
    {"oscilloscope-gray-line", false, true},
};

constexpr std::uint64_t kCameras = 4;
constexpr std::uint64_t kManyLinesWidth = 21'600;
/// So many different lines are computed; the rest are copies that differ by the passing bar.
constexpr std::uint64_t kBaseLines = 16;

using Line = std::vector<std::uint8_t>;

std::vector<Line> BaseLines(const ScanSetup& scan, int planes, std::uint64_t count)
{
    ScanModel model(scan);
    std::vector<Line> lines(count);
    for (Line& line : lines) {
        line.resize(static_cast<std::size_t>(model.LineWidth() * planes));
        for (int plane = 0; plane < planes; ++plane)
            model.FillLine(0, planes == 1 ? 1 : plane, line.data() + plane, planes);
    }
    return lines;
}

/// Draws the bar that passes over the line once in 256 lines.
void DrawBar(std::uint8_t* line, std::size_t lineBytes, std::uint64_t number)
{
    constexpr std::uint8_t kBar = 44;
    constexpr std::uint64_t kPositions = 256;
    const std::size_t barBytes = lineBytes / 32;
    const std::size_t start = (lineBytes - barBytes) / kPositions * (number % kPositions);
    std::fill_n(line + start, barBytes, kBar);
}

bool WriteLines(std::ofstream& stream, const std::vector<Line>& base, std::uint64_t count)
{
    constexpr std::size_t kChunkBytes = std::size_t{8} << 20;
    const std::size_t lineBytes = base.front().size();
    const std::size_t linesInChunk = std::max<std::size_t>(kChunkBytes / lineBytes, 1);
    Line chunk(linesInChunk * lineBytes);
    for (std::uint64_t first = 0; first < count && stream; first += linesInChunk) {
        const auto lines =
            static_cast<std::size_t>(std::min<std::uint64_t>(linesInChunk, count - first));
        for (std::size_t i = 0; i < lines; ++i) {
            const Line& source = base[(first + i) % base.size()];
            std::uint8_t* const target = chunk.data() + i * lineBytes;
            std::copy(source.begin(), source.end(), target);
            if (count > 1)
                DrawBar(target, lineBytes, first + i);
        }
        stream.write(reinterpret_cast<const char*>(chunk.data()),
            static_cast<std::streamsize>(lines * lineBytes));
    }
    return stream.good();
}

/// One noise line, made in memory: its pixels are a third (or all) of the bytes.
bool WriteBigNoise(bool isGray, std::uint64_t bytes, const std::filesystem::path& path)
{
    NoiseSetup setup;
    setup.planeCount = isGray ? 1 : 3;
    const std::uint64_t pixels = bytes / static_cast<std::uint64_t>(setup.planeCount);
    constexpr std::uint64_t kMostPixels = std::uint64_t{1} << 28;
    if (pixels == 0 || pixels > kMostPixels)
        return false;
    setup.lineLength = static_cast<std::int32_t>(pixels);
    setup.dustGrains = 200;
    setup.hotPixels = 40;
    const std::string file = NoiseFile(setup);
    std::ofstream stream(path, std::ios::binary);
    stream.write(file.data(), static_cast<std::streamsize>(file.size()));
    return stream.flush().good();
}

/// Sweeps like those of the sample, longer and of as many as the bytes allow.
bool WriteBigStarTest(std::uint64_t bytes, const std::filesystem::path& path)
{
    constexpr std::int32_t kLines = 20'000;
    constexpr std::uint64_t kBytesPerLine = 56; // About; the numbers grow with the lines.
    constexpr std::uint64_t kMostSweeps = 4096;
    const std::uint64_t sweeps = std::max<std::uint64_t>(bytes / (kLines * kBytesPerLine), 1);
    if (sweeps > kMostSweeps)
        return false;
    std::ofstream stream(path, std::ios::binary);
    const auto write = [&stream](std::string_view text) {
        stream.write(text.data(), static_cast<std::streamsize>(text.size()));
        return stream.good() ? FileStatus::Ok : FileStatus::Failed;
    };
    FileStatus status =
        write(StarTestFileStart(TestFileHeader(), static_cast<std::size_t>(sweeps), 0));
    for (std::uint64_t i = 0; i < sweeps && status == FileStatus::Ok; ++i) {
        const SweepSetup setup{kLines, 600, static_cast<std::int32_t>(2 + i % 5), kLines / 3};
        status = WriteStarTestSweep(MakeSweep(setup, i), write);
    }
    return status == FileStatus::Ok && stream.flush().good();
}

} // namespace

std::string_view BigFileKinds()
{
    return "oscilloscope oscilloscope-gray oscilloscope-line oscilloscope-gray-line noise "
           "noise-gray startest stitch stitch-run-length tiff tiff-lzw";
}

bool WriteBigFile(std::string_view kind, std::uint64_t bytes, const std::filesystem::path& path)
{
    if (kind == "noise" || kind == "noise-gray")
        return WriteBigNoise(kind == "noise-gray", bytes, path);
    if (kind == "stitch" || kind == "stitch-run-length")
        return WriteBigStitch(kind, bytes, path);
    if (kind == "startest")
        return WriteBigStarTest(bytes, path);
    if (kind == "tiff")
        return WriteBigTiff(TifCompression::kNone, bytes, path);
    if (kind == "tiff-lzw")
        return WriteBigTiff(TifCompression::kLzw, bytes, path);
    const auto row = std::find_if(std::begin(kKinds), std::end(kKinds),
        [kind](const BigKind& known) { return known.name == kind; });
    if (row == std::end(kKinds))
        return false;

    const std::uint64_t planes = row->interleaved ? 3 : 1;
    const std::uint64_t cameraPixels =
        std::max<std::uint64_t>((row->oneLine ? bytes / planes : kManyLinesWidth) / kCameras, 10);
    const std::uint64_t lineBytes = cameraPixels * kCameras * planes;
    // The model places pixels in 1/16 pixel, in 32 bits.
    constexpr std::uint64_t kMostPixels = std::numeric_limits<std::int32_t>::max() / 32;
    const std::uint64_t lines = row->oneLine ? 1 : std::max<std::uint64_t>(bytes / lineBytes, 1);
    if (cameraPixels * kCameras > kMostPixels || lines > std::numeric_limits<std::int32_t>::max())
        return false;

    OscilloscopeSetup setup;
    setup.color = row->interleaved ? TestFileHeader::kColorInterleaved : TestFileHeader::kColorGray;
    setup.scan.cameraPixels.assign(kCameras, static_cast<int>(cameraPixels));
    setup.scan.lineCount = 1; // The bar of many lines is drawn into the copies.
    const std::vector<Line> base =
        BaseLines(setup.scan, static_cast<int>(planes), std::min(lines, kBaseLines));
    setup.scan.lineCount = static_cast<int>(lines);

    std::ofstream stream(path, std::ios::binary);
    const std::string header = OscilloscopeHeader(setup).Text();
    stream.write(header.data(), static_cast<std::streamsize>(header.size()));
    return WriteLines(stream, base, lines) && stream.flush().good();
}

} // namespace vireo
