#include "samples/NoiseSamples.h"

#include "samples/OldHeader.h"
#include "samples/SampleRandom.h"
#include "testfile/TestFileHeader.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace vireo {

namespace {

constexpr int kOne = 16; ///< One level, in the model's fixed point.
constexpr std::array<int, 4> kLevels{203, 200, 194, 198};
constexpr int kShading = 3;  ///< Levels that the ends of the line are darker than its middle.
constexpr int kNoise16 = 20; ///< Standard deviation of the noise, in 1/16 level.
constexpr int kHotLevel = 244;

/// Where something lies on the line that all planes see.
struct Flaw {
    std::int64_t centre = 0;
    int reach = 0;
    int depth = 0;
};

/// Places with a little room to the ends, the same for all planes.
std::vector<Flaw> PlaceFlaws(const NoiseSetup& setup, int count, SampleRandom& random)
{
    std::vector<Flaw> flaws;
    for (int i = 0; i < count; ++i) {
        const int permille = random.Between(20, 980);
        flaws.push_back({std::int64_t{setup.lineLength} * permille / 1000, random.Between(4, 40),
            random.Between(14, 60)});
    }
    return flaws;
}

/// What dust takes away at a pixel, in 1/16 level.
int Dimming(const Flaw& grain, std::int64_t pixel)
{
    const auto distance = static_cast<int>(std::abs(pixel - grain.centre));
    return distance >= grain.reach ? 0
                                   : kOne * grain.depth * (grain.reach - distance) / grain.reach;
}

std::string MakePlane(const NoiseSetup& setup, std::size_t plane, const std::vector<Flaw>& dust,
    const std::vector<Flaw>& hot, SampleRandom& random)
{
    std::string samples;
    samples.reserve(static_cast<std::size_t>(setup.lineLength));
    const std::int64_t half = std::max(setup.lineLength / 2, 1);
    for (std::int64_t pixel = 0; pixel < setup.lineLength; ++pixel) {
        const std::int64_t fromMiddle = (pixel - half) * 100 / half;
        auto level = static_cast<int>(
            kOne * kLevels[plane] - kOne * kShading * fromMiddle * fromMiddle / 10'000);
        level += random.Normal() * kNoise16 / SampleRandom::kNormalDeviation;
        samples += static_cast<char>(std::clamp(level / kOne, 0, 255));
    }
    for (const Flaw& grain : dust) {
        for (std::int64_t pixel = std::max<std::int64_t>(grain.centre - grain.reach, 0);
             pixel < std::min<std::int64_t>(grain.centre + grain.reach, setup.lineLength);
             ++pixel) {
            char& sample = samples[static_cast<std::size_t>(pixel)];
            const int value = static_cast<unsigned char>(sample) - Dimming(grain, pixel) / kOne;
            sample = static_cast<char>(std::max(value, 0));
        }
    }
    for (const Flaw& pixel : hot)
        samples[static_cast<std::size_t>(pixel.centre)] = static_cast<char>(kHotLevel);
    return samples;
}

std::string TextHeader(const NoiseSetup& setup)
{
    const bool isColour = setup.planeCount > 1;
    TestFileHeader header;
    header.WriteNoiseTestTag();
    header.WriteProgramName("Kestrel6");
    header.WriteProgramVersion("6.2.1");
    header.WriteDate("2026-03-14");
    header.WriteTime("11:05:40");
    header.WriteScannerName(setup.scannerName);
    header.WriteScannerID("H36-00417");
    header.WriteColorScanner(isColour);
    header.WriteScannerWidth(43'248);
    header.WriteColor(isColour ? TestFileHeader::kColorInterleaved : TestFileHeader::kColorGray);
    header.WriteNoiseLimit(5);
    header.WriteLength(setup.lineLength);
    header.FixUpDataOffset();
    return header.Text();
}

std::string BinaryHeader(const NoiseSetup& setup)
{
    OldFileHeader fields;
    fields.type = OldFileHeader::kTypeNoise;
    fields.colorFlag = setup.planeCount > 1 ? 1 : 0;
    fields.width = setup.lineLength;
    return OldHeaderBytes(fields);
}

} // namespace

std::string NoiseFile(const NoiseSetup& setup)
{
    SampleRandom random(setup.seed);
    const std::vector<Flaw> dust = PlaceFlaws(setup, setup.dustGrains, random);
    const std::vector<Flaw> hot = PlaceFlaws(setup, setup.hotPixels, random);
    std::string bytes = setup.binary ? BinaryHeader(setup) : TextHeader(setup);
    constexpr std::size_t kGreen = 1;
    for (std::size_t plane = 0; plane < static_cast<std::size_t>(setup.planeCount); ++plane)
        bytes += MakePlane(setup, setup.planeCount == 1 ? kGreen : plane, dust, hot, random);
    if (setup.binary) {
        constexpr std::size_t kTrailerBytes = 44;
        std::string trailer = setup.scannerName;
        trailer.resize(kTrailerBytes, '\0');
        bytes += trailer;
    }
    return bytes;
}

std::vector<SampleFile> NoiseSamples()
{
    std::vector<NoiseSetup> setups(4);
    setups[0].name = "noise-color.con";
    setups[0].dustGrains = 5;
    setups[0].seed = 301;
    setups[1].name = "noise-gray.con";
    setups[1].scannerName = "Heron 36 Mono";
    setups[1].planeCount = 1;
    setups[1].seed = 302;
    setups[2].name = "noise-binary.con";
    setups[2].scannerName = "Heron 24";
    setups[2].lineLength = 5'100;
    setups[2].binary = true;
    setups[2].seed = 303;
    setups[3].name = "noise-four-planes.con";
    setups[3].planeCount = 4;
    setups[3].hotPixels = 3;
    setups[3].seed = 304;
    std::vector<SampleFile> files;
    for (const NoiseSetup& setup : setups)
        files.push_back({setup.name, NoiseFile(setup)});
    return files;
}

} // namespace vireo
