#include "samples/LightProfileSamples.h"

#include "samples/LittleEndian.h"
#include "samples/OldHeader.h"
#include "samples/SampleRandom.h"
#include "viewers/lightprofile/LightProfileRecord.h"

#include <algorithm>

namespace vireo {

namespace {

constexpr int kOne = 256; ///< One 8-bit level.
constexpr int kLevels[] = {214, 220, 206};

/// The light at a pixel of a camera without noise, as its distance from the full level.
int Shading(int index, int pixels, bool corrected)
{
    const int fromMiddle = 200 * index / pixels - 100; // Percent of half the camera.
    const int fallOff = corrected ? 3 : 46;            // Levels at the camera's ends.
    return kOne * fallOff * fromMiddle * fromMiddle / 10'000;
}

} // namespace

std::vector<std::int32_t> LightOf(const LightSetup& setup, int plane)
{
    SampleRandom random(setup.seed + static_cast<std::uint64_t>(plane));
    std::vector<std::int32_t> light;
    for (const int pixels : setup.cameraPixels) {
        const int gain = kOne * random.Between(-1, 1) * (setup.corrected ? 1 : 9);
        for (int i = 0; i < pixels; ++i)
            light.push_back(kOne * kLevels[plane] + gain - Shading(i, pixels, setup.corrected)
                + kOne * random.Normal() / SampleRandom::kNormalDeviation);
    }
    const auto last = static_cast<int>(light.size()) - 1;
    for (int grain = 0; grain < 6; ++grain) {
        const int centre = random.Between(0, last);
        const int reach = random.Between(3, 14);
        const int depth = random.Between(10, 40);
        for (int i = std::max(centre - reach, 0); i <= std::min(centre + reach, last); ++i)
            light[static_cast<std::size_t>(i)] -= kOne * depth / 2;
    }
    return light;
}

namespace {

std::string Bytes(const std::vector<std::int32_t>& light)
{
    std::string bytes;
    for (const std::int32_t value : light)
        bytes += static_cast<char>(static_cast<unsigned char>(std::clamp(value / kOne, 0, 255)));
    return bytes;
}

LightProfileRecord RecordOf(const LightSetup& setup)
{
    LightProfileRecord record;
    record.programName = "Kestrel6";
    record.programVersion = "6.2.1";
    record.programBuild = "418";
    record.date = "2026-03-14";
    record.time = "10:21:44";
    record.scannerName = "Heron 36";
    record.scannerID = "H36-00417";
    record.firmwareRevision = 7;
    record.generation = 5;
    record.scannerFamily = 5;
    record.corrected = setup.corrected;
    record.scannerWidth = 43'200;
    record.cameraCount = static_cast<int>(setup.cameraPixels.size());
    std::ranges::copy(setup.cameraPixels, record.cameraPixels.begin());
    record.height = 1;
    return record;
}

SampleFile GrayFile()
{
    const LightSetup setup{{1'352, 1'348, 1'350, 1'350}, true, 501};
    LightProfileRecord record = RecordOf(setup);
    record.resolution = 150;
    constexpr int kGreen = 1;
    return {"light-profile-gray.con", record.Header().Text() + Bytes(LightOf(setup, kGreen))};
}

/// How far each pixel is off the level that the scanner is adjusted to, in 1/256 level.
SampleFile SignedColourFile()
{
    const LightSetup setup{{902, 898, 899, 901}, false, 502};
    LightProfileRecord record = RecordOf(setup);
    record.isG3 = true;
    record.colorScanner = true;
    record.color = TestFileHeader::kColorInterleaved;
    record.isSigned32 = true;
    record.resolution = 100;
    constexpr int kPlanes = 3;
    constexpr int kAdjustedTo = 200 * kOne;
    std::vector<std::vector<std::int32_t>> planes;
    for (int plane = 0; plane < kPlanes; ++plane)
        planes.push_back(LightOf(setup, plane));
    std::string bytes = record.Header().Text();
    for (std::size_t i = 0; i < planes.front().size(); ++i)
        for (const std::vector<std::int32_t>& plane : planes)
            AppendInteger(bytes, static_cast<std::uint32_t>(plane[i] - kAdjustedTo), 4);
    return {"light-profile-signed.con", bytes};
}

SampleFile OldFile()
{
    const LightSetup setup{{2'550, 2'550}, false, 503};
    OldFileHeader fields;
    fields.type = OldFileHeader::kTypeLightProfile;
    fields.resolution = 200;
    fields.width = 5'100;
    fields.height = 1;
    constexpr int kGreen = 1;
    return {"light-profile-binary.con", OldHeaderBytes(fields) + Bytes(LightOf(setup, kGreen))};
}

} // namespace

std::vector<SampleFile> LightProfileSamples()
{
    return {GrayFile(), SignedColourFile(), OldFile()};
}

} // namespace vireo
