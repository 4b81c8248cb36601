#include "samples/StitchSamples.h"

#include "samples/OldHeader.h"
#include "samples/SampleRandom.h"
#include "testfile/TestFileHeader.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <limits>

namespace vireo {

namespace {

constexpr int kPaper = 214;
constexpr int kInk = 38;
constexpr int kDarker = 6;          ///< Levels that the right camera is darker.
constexpr std::int64_t kPitch = 32; ///< Of the printed lines.
constexpr std::int64_t kThickness = 2;
constexpr std::int64_t kShiftX = 1; ///< What the right camera is off.
constexpr std::int64_t kShiftY = 3;
constexpr std::int64_t kDiagonalPitch = 160;
constexpr int kNoise = 3; ///< Standard deviation in levels.

bool IsOnLine(std::int64_t place)
{
    return place % kPitch < kThickness;
}

} // namespace

StitchModel::StitchModel(std::int64_t width, Noise noise, std::uint64_t seed) : m_width(width)
{
    SampleRandom random(seed);
    SampleRandom* const used = noise == Noise::With ? &random : nullptr;
    for (int i = 0; i < kVariants; ++i)
        m_plain.push_back(MakeRow(false, used));
    m_line = MakeRow(true, used);
}

std::vector<std::uint8_t> StitchModel::MakeRow(bool isLine, SampleRandom* random) const
{
    std::vector<std::uint8_t> row(static_cast<std::size_t>(m_width));
    for (std::int64_t x = 0; x < m_width; ++x) {
        const bool isRight = x >= m_width / 2;
        const bool isInk = isLine || IsOnLine(x + (isRight ? kPitch - kShiftX : 0));
        int level = (isInk ? kInk : kPaper) - (isRight ? kDarker : 0);
        if (random)
            level += random->Normal() * kNoise / SampleRandom::kNormalDeviation;
        row[static_cast<std::size_t>(x)] = static_cast<std::uint8_t>(level);
    }
    return row;
}

void StitchModel::FillRow(std::int64_t row, std::span<std::uint8_t> pixels) const
{
    const std::vector<std::uint8_t>& plain = m_plain[static_cast<std::size_t>(row % kVariants)];
    const std::int64_t seam = m_width / 2;
    const auto copy = [&](std::int64_t from, std::int64_t to, std::int64_t targetRow) {
        const std::vector<std::uint8_t>& source = IsOnLine(targetRow) ? m_line : plain;
        std::copy(source.begin() + from, source.begin() + to, pixels.begin() + from);
        // One pixel of each of the fine diagonals.
        const std::int64_t first = targetRow % kDiagonalPitch;
        for (std::int64_t x =
                 from + (first - from % kDiagonalPitch + kDiagonalPitch) % kDiagonalPitch;
             x < to; x += kDiagonalPitch)
            pixels[static_cast<std::size_t>(x)] = kInk;
    };
    copy(0, seam, row);
    copy(seam, m_width, row + kPitch - kShiftY);
}

std::string RunLengthCodes(std::span<const std::uint8_t> pixels)
{
    constexpr std::ptrdiff_t kLongestRun = 127;
    constexpr int kWhiteBit = 0x80;
    constexpr std::uint8_t kHalf = 128;
    std::string codes;
    for (auto run = pixels.begin(); run != pixels.end();) {
        const bool isBlack = *run < kHalf;
        const auto end = std::find_if(run, pixels.end(),
            [isBlack](std::uint8_t value) { return (value < kHalf) != isBlack; });
        const std::ptrdiff_t length = std::min(end - run, kLongestRun);
        codes += static_cast<char>(length | (isBlack ? 0 : kWhiteBit));
        run += length;
    }
    return codes + '\0';
}

namespace {

constexpr int kResolution = 600;

std::string TextHeader(std::int64_t width, std::int64_t height)
{
    TestFileHeader header;
    header.WriteStitchTestTag();
    header.WriteProgramName("Kestrel6");
    header.WriteProgramVersion("6.2.1");
    header.WriteDate("2026-03-14");
    header.WriteTime("11:32:18");
    header.WriteScannerName("Heron 36");
    header.WriteScannerID("H36-00417");
    header.WriteResolution(kResolution);
    header.WriteHeight(static_cast<int>(height));
    header.WriteWidth(static_cast<int>(width));
    header.FixUpDataOffset();
    return header.Text();
}

std::string BinaryHeader(int type, std::int64_t width, std::int64_t height)
{
    OldFileHeader fields;
    fields.type = static_cast<std::uint8_t>(type);
    fields.resolution = kResolution;
    fields.width = static_cast<std::int32_t>(width);
    fields.height = static_cast<std::int32_t>(height);
    return OldHeaderBytes(fields);
}

/// What byte 11 of a file of run-length codes holds: anything but 18.
constexpr int kRunLengthType = 17;

/// All rows one behind the other, as pixels or as codes.
std::string Rows(const StitchModel& model, std::int64_t height, bool isRunLength)
{
    std::string bytes;
    std::vector<std::uint8_t> row(static_cast<std::size_t>(model.Width()));
    for (std::int64_t y = 0; y < height; ++y) {
        model.FillRow(y, row);
        bytes += isRunLength ? RunLengthCodes(row) : std::string(row.begin(), row.end());
    }
    return bytes;
}

} // namespace

std::vector<SampleFile> StitchSamples()
{
    const StitchModel gray(720, StitchModel::Noise::With, 401);
    const StitchModel binary(320, StitchModel::Noise::With, 402);
    const StitchModel lines(2400, StitchModel::Noise::Without, 403);
    return {
        {"stitch-gray.con", TextHeader(720, 420) + Rows(gray, 420, false)},
        {"stitch-binary.con",
            BinaryHeader(OldFileHeader::kTypeStitch, 320, 200) + Rows(binary, 200, false)},
        {"stitch-run-length.con", BinaryHeader(kRunLengthType, 2400, 600) + Rows(lines, 600, true)},
    };
}

namespace {

bool WriteBigGray(std::uint64_t bytes, std::ofstream& stream)
{
    const auto side = static_cast<std::int64_t>(std::sqrt(static_cast<double>(bytes)));
    if (side < 2 || side > std::numeric_limits<std::int32_t>::max())
        return false;
    const std::string header = TextHeader(side, side);
    stream.write(header.data(), static_cast<std::streamsize>(header.size()));
    const StitchModel model(side, StitchModel::Noise::With, 404);
    std::vector<std::uint8_t> row(static_cast<std::size_t>(side));
    for (std::int64_t y = 0; y < side && stream; ++y) {
        model.FillRow(y, row);
        stream.write(reinterpret_cast<const char*>(row.data()), side);
    }
    return stream.flush().good();
}

bool WriteBigRunLength(std::uint64_t bytes, std::ofstream& stream)
{
    constexpr std::int64_t kWidth = 40'000;
    const StitchModel model(kWidth, StitchModel::Noise::Without, 405);
    std::vector<std::uint8_t> row(static_cast<std::size_t>(kWidth));
    // The codes come first, to know how many rows they are; the header's place is kept free.
    stream.write(std::string(OldFileHeader::kBytes, '\0').data(), OldFileHeader::kBytes);
    std::int64_t height = 0;
    for (std::uint64_t written = 0; written < bytes && stream; ++height) {
        model.FillRow(height, row);
        const std::string codes = RunLengthCodes(row);
        stream.write(codes.data(), static_cast<std::streamsize>(codes.size()));
        written += codes.size();
    }
    if (height > std::numeric_limits<std::int32_t>::max())
        return false;
    const std::string header = BinaryHeader(kRunLengthType, kWidth, height);
    stream.seekp(0);
    stream.write(header.data(), static_cast<std::streamsize>(header.size()));
    return stream.flush().good();
}

} // namespace

bool WriteBigStitch(std::string_view kind, std::uint64_t bytes, const std::filesystem::path& path)
{
    std::ofstream stream(path, std::ios::binary);
    if (kind == "stitch")
        return WriteBigGray(bytes, stream);
    return kind == "stitch-run-length" && WriteBigRunLength(bytes, stream);
}

} // namespace vireo
