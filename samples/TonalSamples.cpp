#include "samples/TonalSamples.h"

#include "samples/SampleRandom.h"
#include "viewers/tonal/TonalFileText.h"
#include "viewers/tonal/TonalResolutionData.h"

#include <algorithm>
#include <array>

namespace vireo {

namespace {

constexpr int kHundred = 100; ///< One level, in the model's fixed point.
constexpr int kFullScale = 255 * kHundred;
constexpr int kSamples = 1600;

/// A patch of the target: 100 times its L*, and 100 times the level at which a scanner with a gamma
/// of 2.2 and a little stray light sees it.
struct GrayPatch {
    int lightness = 0;
    int level = 0;
};
constexpr std::array<GrayPatch, TonalResolutionData::kPatches> kTarget{{
    {9150, 22840},
    {8747, 21681},
    {8345, 20542},
    {7942, 19417},
    {7540, 18312},
    {7138, 17224},
    {6735, 16152},
    {6332, 15099},
    {5930, 14068},
    {5527, 13055},
    {5125, 12065},
    {4722, 11094},
    {4320, 10148},
    {3917, 9224},
    {3515, 8327},
    {3112, 7454},
    {2710, 6612},
    {2307, 5797},
    {1905, 5018},
    {1502, 4272},
    {1100, 3569},
    {860, 3171},
    {640, 2805},
    {440, 2415},
}};

/// An arch over the levels: nothing at both ends, `height` in the middle.
int Bend(int level, int height)
{
    const std::int64_t arch = std::int64_t{4} * level * (kFullScale - level) / kFullScale;
    return static_cast<int>(arch * height / kFullScale);
}

TonalPatch ScanPatch(const GrayPatch& gray, const TonalSetup& setup, SampleRandom& random)
{
    constexpr int kNoise = 110;           // Standard deviation, in 1/100 level;
    constexpr int kNoiseGrowsEvery = 400; // one more for so much light.
    const TonalTriple<int> bends{setup.redBend, 0, setup.blueBend};
    TonalPatch patch;
    patch.lightness = static_cast<double>(static_cast<float>(gray.lightness) / 100.0F);
    patch.count = kSamples + setup.greenSamples;
    for (std::size_t channel = 0; channel < kTonalChannels; ++channel) {
        const int level = std::clamp(
            gray.level + Bend(gray.level, bends[channel]), setup.darkest, setup.lightest);
        const int noise = kNoise + level / kNoiseGrowsEvery;
        for (int i = 0; i < kSamples; ++i) {
            const int value = level + random.Normal() * noise / SampleRandom::kNormalDeviation;
            const int sample = std::clamp((value + kHundred / 2) / kHundred, 0, 255);
            patch.sum[channel] += sample;
            patch.sumOfSquares[channel] += sample * sample;
        }
    }
    patch.sum[TonalGreen] += setup.greenSamples * 255;
    patch.sumOfSquares[TonalGreen] += setup.greenSamples * 255 * 255;
    return patch;
}

} // namespace

std::string TonalFile(const TonalSetup& setup)
{
    SampleRandom random(setup.seed);
    TonalResolutionData data;
    data.m_iVersion = setup.version;
    data.m_ScannerName = setup.scannerName;
    data.m_ChassisNo = "CH004711";
    data.m_SerialNo = "H36-00417";
    data.m_Date = "2026-03-14";
    data.m_Time = "13:20:05";
    data.m_FirmwareBuild = "1184";
    data.m_IT8RefFile = "R060315.Q60";
    data.m_iGammaSlopeLimit = 8;
    std::transform(kTarget.begin(), kTarget.end(), data.m_patches.begin(),
        [&](const GrayPatch& gray) { return ScanPatch(gray, setup, random); });
    data.Recompute();
    return FormatTonalText(data);
}

std::vector<SampleFile> TonalSamples()
{
    constexpr int kGreenSamples = 8;
    std::vector<TonalSetup> setups(3);
    setups[0].name = "tonal-resolution.con";
    setups[0].seed = 401;
    setups[1].name = "tonal-resolution-shadows.con";
    setups[1].scannerName = "Heron 24";
    setups[1].darkest = 5'000;
    setups[1].redBend = 520;
    setups[1].blueBend = -700;
    setups[1].seed = 402;
    setups[2].name = "tonal-resolution-version-1.con";
    setups[2].scannerName = "Heron 36+";
    setups[2].version = 1;
    setups[2].greenSamples = kGreenSamples;
    setups[2].seed = 403;
    std::vector<SampleFile> files;
    for (const TonalSetup& setup : setups)
        files.push_back({setup.name, TonalFile(setup)});
    return files;
}

} // namespace vireo
