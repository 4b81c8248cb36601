#include "samples/TiffSamples.h"

#include "imagefile/CTIFWriter.h"
#include "samples/SampleRandom.h"
#include "testfile/CameraDescription.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <memory>
#include <utility>

namespace vireo {

namespace {

constexpr int kPaper = 232;
constexpr int kInk = 28;

/// A printed test chart, in whole numbers only: a frame, a gray wedge, line pairs that get finer, a
/// grid of crosses with a diagonal line, and a smooth ramp.
class Chart {
public:
    Chart(int width, int height) : m_width(width), m_height(height) { }

    /// The gray value of a point of the paper.
    int At(int x, int y) const
    {
        const int margin = m_width / 32;
        const int right = m_width - 1 - margin;
        const int bottom = m_height - 1 - margin;
        if (x < margin || y < margin || x > right || y > bottom)
            return kPaper;
        if (x - margin < 2 || y - margin < 2 || right - x < 2 || bottom - y < 2)
            return kInk;
        const int inner = 2 * margin;
        const int width = m_width - 2 * inner;
        const int bandHeight = std::max((m_height - 2 * inner) / 4, 1);
        const int u = x - inner;
        const int v = y - inner;
        if (u < 0 || v < 0 || u >= width || v >= 4 * bandHeight)
            return kPaper;
        // Bands stand a little apart.
        const int band = v / bandHeight;
        const int w = v % bandHeight;
        if (w > bandHeight * 7 / 8)
            return kPaper;
        return ValueInBand(band, u, w, width, bandHeight);
    }

private:
    static int ValueInBand(int band, int u, int w, int width, int height)
    {
        switch (band) {
        case 0: {
            constexpr int kSteps = 16;
            return kInk + (kPaper - kInk) * (u * kSteps / width) / (kSteps - 1);
        }
        case 1: {
            constexpr int kGroups = 8;
            const int pitch = 16 - 2 * (u * kGroups / width);
            return u % pitch < pitch / 2 ? kInk : kPaper;
        }
        case 2: {
            constexpr int kPitch = 48;
            const bool isCross = (u % kPitch == kPitch / 2 && std::abs(w % kPitch - kPitch / 2) < 9)
                || (w % kPitch == kPitch / 2 && std::abs(u % kPitch - kPitch / 2) < 9);
            return isCross || std::abs(u - w * width / height) < 2 ? kInk : kPaper;
        }
        default:
            return kInk + (kPaper - kInk) * u / width;
        }
    }

    int m_width;
    int m_height;
};

/// What a scanner of four cameras makes of a chart: each has its own gain and is shifted a little.
struct CameraScan {
    static constexpr CameraCounts kCounts{217, 215, 216, 216, 0, 0, 0, 0};
    static constexpr int kWidth = 864;
    static constexpr int kHeight = 560;

    static int At(const Chart& chart, int x, int y)
    {
        constexpr std::array<int, 4> kShift{0, 1, -1, 1};
        constexpr std::array<int, 4> kLoss{0, 7, 2, 10};
        std::size_t camera = 0;
        for (int end = kCounts[0]; camera + 1 < kShift.size() && x >= end; end += kCounts[camera])
            ++camera;
        return chart.At(x, y + kShift[camera]) - kLoss[camera];
    }
};

/// Keeps what the writer writes.
class SampleTarget : public CTIFTarget {
public:
    explicit SampleTarget(std::string& bytes) : m_bytes(bytes) { }

    FileStatus Open() override { return FileStatus::Ok; }
    FileStatus Write(std::span<const std::uint8_t> bytes) override
    {
        m_bytes.append(bytes.begin(), bytes.end());
        return FileStatus::Ok;
    }
    FileStatus Overwrite(std::uint64_t offset, std::span<const std::uint8_t> bytes) override
    {
        std::copy(bytes.begin(), bytes.end(),
            m_bytes.begin() + static_cast<std::string::difference_type>(offset));
        return FileStatus::Ok;
    }
    FileStatus Commit() override { return FileStatus::Ok; }

private:
    std::string& m_bytes;
};

struct Picture {
    ColorDepth depth = ColorDepth::Gray8;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t resolution = 300;
    /// Fills a row of as many bytes as the depth asks for.
    std::function<void(int y, std::uint8_t* row)> fillRow;
};

bool Write(CTIFWriter& writer, const Picture& picture)
{
    ImageResult result =
        writer.BeginImage(picture.depth, picture.width, picture.height, picture.resolution, 0, 0);
    for (std::uint32_t y = 0; y < picture.height && result == ImageResult::Ok; ++y) {
        picture.fillRow(static_cast<int>(y), writer.GetLineBuffer());
        result = writer.LineDone();
    }
    return result == ImageResult::Ok && writer.EndImage(0) == ImageResult::Ok;
}

SampleFile Sample(std::string name, TifSettings settings, const Picture& picture)
{
    SampleFile file{std::move(name), {}};
    CTIFWriter writer(std::make_unique<SampleTarget>(file.bytes), std::move(settings));
    if (!Write(writer, picture))
        file.bytes.clear();
    return file;
}

SampleFile GraySample()
{
    TifSettings settings;
    settings.compression = TifCompression::kLzw;
    settings.description = CameraDescription(CameraScan::kCounts);
    const Chart chart(CameraScan::kWidth, CameraScan::kHeight);
    return Sample("picture-gray.tif", std::move(settings),
        {ColorDepth::Gray8, CameraScan::kWidth, CameraScan::kHeight, 300,
            [chart](int y, std::uint8_t* row) {
                for (int x = 0; x < CameraScan::kWidth; ++x)
                    row[x] = static_cast<std::uint8_t>(CameraScan::At(chart, x, y));
            }});
}

SampleFile BilevelSample()
{
    constexpr int kWidth = 960;
    constexpr int kHeight = 640;
    TifSettings settings;
    settings.compression = TifCompression::kGroup4;
    const Chart chart(kWidth, kHeight);
    return Sample("picture-bilevel.tif", std::move(settings),
        {ColorDepth::Bilevel, kWidth, kHeight, 600, [chart](int y, std::uint8_t* row) {
             // Grays between ink and paper become dots: an ordered dither of 4 x 4.
             constexpr int kDither[4][4] = {
                 {0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};
             std::fill_n(row, kWidth / 8, std::uint8_t{0});
             for (int x = 0; x < kWidth; ++x) {
                 const int gray = 256 * (chart.At(x, y) - kInk) / (kPaper - kInk);
                 if (gray > 16 * kDither[y % 4][x % 4] + 8)
                     row[x / 8] = static_cast<std::uint8_t>(row[x / 8] | 0x80 >> x % 8);
             }
         }});
}

SampleFile ColourSample()
{
    constexpr int kWidth = 640;
    constexpr int kHeight = 420;
    TifSettings settings;
    settings.compression = TifCompression::kLzw;
    settings.predictor = TifPage::kHorizontalDifferencing;
    const Chart chart(kWidth, kHeight);
    return Sample("picture-rgb.tif", std::move(settings),
        {ColorDepth::Rgb8, kWidth, kHeight, 200, [chart](int y, std::uint8_t* row) {
             for (int x = 0; x < kWidth; ++x) {
                 const int gray = chart.At(x, y);
                 *row++ = static_cast<std::uint8_t>(gray);
                 *row++ = static_cast<std::uint8_t>(gray - gray * x / (3 * kWidth));
                 *row++ = static_cast<std::uint8_t>(gray - gray * y / (2 * kHeight));
             }
         }});
}

SampleFile PaletteSample()
{
    constexpr int kWidth = 480;
    constexpr int kHeight = 320;
    TifSettings settings;
    settings.compression = TifCompression::kPackBits;
    settings.colorMap.emplace();
    // False colours, as a heat map has them: black, blue, red, yellow, white.
    for (int i = 0; i < 256; ++i) {
        const auto ramp = [i](int from, int to) {
            return static_cast<std::uint8_t>(std::clamp((i - from) * 255 / (to - from), 0, 255));
        };
        const auto blue = i < 128 ? ramp(0, 64) - ramp(64, 128) : ramp(192, 255);
        (*settings.colorMap)[static_cast<std::size_t>(i)] = {
            ramp(64, 128), ramp(128, 192), static_cast<std::uint8_t>(blue)};
    }
    const Chart chart(kWidth, kHeight);
    return Sample("picture-palette.tif", std::move(settings),
        {ColorDepth::Palette8, kWidth, kHeight, 100, [chart](int y, std::uint8_t* row) {
             for (int x = 0; x < kWidth; ++x)
                 row[x] = static_cast<std::uint8_t>(chart.At(x, y));
         }});
}

SampleFile Gray16Sample()
{
    constexpr int kWidth = 480;
    constexpr int kHeight = 320;
    TifSettings settings;
    settings.compression = TifCompression::kLzw;
    settings.predictor = TifPage::kHorizontalDifferencing;
    const Chart chart(kWidth, kHeight);
    return Sample("picture-gray16.tif", std::move(settings),
        {ColorDepth::Gray16, kWidth, kHeight, 300, [chart](int y, std::uint8_t* row) {
             for (int x = 0; x < kWidth; ++x) {
                 // More than 256 levels: the light falls off a little to the right.
                 const int value = chart.At(x, y) * 256 - 8 * x;
                 *row++ = static_cast<std::uint8_t>(value & 0xFF);
                 *row++ = static_cast<std::uint8_t>(value >> 8);
             }
         }});
}

} // namespace

std::vector<SampleFile> TiffSamples()
{
    return {GraySample(), BilevelSample(), ColourSample(), PaletteSample(), Gray16Sample()};
}

bool WriteBigTiff(std::uint16_t compression, std::uint64_t bytes, const std::filesystem::path& path)
{
    constexpr double kLargestSide = 60'000.0;
    const double root = std::sqrt(static_cast<double>(bytes));
    if (root < 1.0 || root > kLargestSide)
        return false;
    const int side = static_cast<int>(root);
    const Chart chart(side, side);
    // The noise of a few rows is enough for all, each beginning elsewhere.
    constexpr int kNoiseRows = 16;
    SampleRandom random(401);
    std::vector<std::int8_t> noise(static_cast<std::size_t>(side) * kNoiseRows);
    for (std::int8_t& value : noise)
        value = static_cast<std::int8_t>(random.Normal() * 2 / SampleRandom::kNormalDeviation);
    TifSettings settings;
    settings.compression = compression;
    CTIFWriter writer(path, std::move(settings));
    const auto length = static_cast<std::uint32_t>(side);
    return Write(writer, {ColorDepth::Gray8, length, length, 600, [&](int y, std::uint8_t* row) {
                              const std::int8_t* const of =
                                  noise.data() + std::size_t{length} * (7 * y % kNoiseRows);
                              for (int x = 0; x < side; ++x)
                                  row[x] = static_cast<std::uint8_t>(chart.At(x, y) + of[x]);
                          }});
}

} // namespace vireo
