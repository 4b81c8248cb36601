#include "viewers/tonal/TonalResolutionData.h"

#include "platform/AtomicFile.h"
#include "viewers/tonal/TonalFileText.h"

#include <algorithm>
#include <cmath>

namespace vireo {

TonalResult TonalResolutionData::Read(const std::filesystem::path& path)
{
    *this = TonalResolutionData();
    const FileStatus status = ReadWholeFile(path, kLargestFile, m_fileText);
    const TonalResult result = status == FileStatus::Ok ? ReadText() : TonalResult::CantRead;
    if (result != TonalResult::Ok)
        *this = TonalResolutionData();
    m_bLoaded = result == TonalResult::Ok;
    m_readStatus = status;
    m_FileName = path;
    return result;
}

TonalResult TonalResolutionData::ReadText()
{
    if (!ParseTonalText(m_fileText, *this))
        return TonalResult::WrongKind;
    if (m_ScannerName == "Default")
        return TonalResult::NoMeasurement;
    if (m_ScannerName.ends_with('+'))
        m_ScannerName.pop_back();
    m_bCorrected = HasGreenFault();
    if (m_bCorrected)
        CorrectGreenFault();
    Recompute();
    return TonalResult::Ok;
}

/// Whether each patch holds eight samples of pure green too many, as files of the test program's
/// first version may. In the light these are near the mean of green, but far from that of red: the
/// signal of green then seems to have far more bits free of noise.
bool TonalResolutionData::HasGreenFault() const
{
    constexpr std::int32_t kFaultyVersion = 1;
    constexpr double kMostBitsApart = 0.8;
    return m_iVersion == kFaultyVersion
        && m_dBitDepthLight[TonalGreen] - m_dBitDepthLight[TonalRed] > kMostBitsApart;
}

namespace {

/// a - b, around the ends of 32 bits as the sums themselves went.
std::int32_t WrappedDifference(std::int32_t a, std::int32_t b)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

} // namespace

/// Takes the eight samples out again. The count is that of all channels.
void TonalResolutionData::CorrectGreenFault()
{
    constexpr std::int32_t kSamples = 8;
    constexpr std::int32_t kValue = 255;
    for (TonalPatch& patch : m_patches) {
        std::int32_t& sum = patch.sum[TonalGreen];
        std::int32_t& sumOfSquares = patch.sumOfSquares[TonalGreen];
        patch.count = WrappedDifference(patch.count, kSamples);
        sum = WrappedDifference(sum, kSamples * kValue);
        sumOfSquares = WrappedDifference(sumOfSquares, kSamples * kValue * kValue);
    }
}

std::string TonalResolutionData::DescribeFailure(TonalResult result) const
{
    switch (result) {
    case TonalResult::Ok:
        return {};
    case TonalResult::CantRead:
        return std::string(Describe(m_readStatus));
    case TonalResult::WrongKind:
        return "Not a tonal resolution file";
    case TonalResult::NoMeasurement:
        return "The file holds no measurement: its scanner name is \"Default\"";
    }
    return {};
}

FileStatus TonalResolutionData::Write(const std::filesystem::path& path)
{
    m_FileName = path;
    return WriteFileAtomically(path, FormatTonalText(*this));
}

void TonalResolutionData::Recompute()
{
    constexpr std::int32_t kNewRecord = -1;
    constexpr std::int32_t kPresentVersion = 3;
    if (m_iVersion == kNewRecord)
        m_iVersion = kPresentVersion;
    ComputePatches();
    ComputeDynamicRange();
    ComputeLinearity();
    ComputeDeviations();
    ComputeBitDepths();
}

void TonalResolutionData::ComputePatches()
{
    for (TonalPatch& patch : m_patches) {
        patch.density = FiniteOrZero(DensityOfLightness(patch.lightness));
        for (std::size_t channel = 0; channel < kTonalChannels; ++channel)
            patch.scan[channel] = ScanValue(patch.Mean(channel));
    }
}

/// Whether a channel's mean rises between the patch and that at one end of the target by more than
/// a fifth of a level a unit of lightness.
bool TonalResolutionData::IsTellingApart(std::size_t patch, std::size_t end) const
{
    constexpr double kLeastSlope = 0.2;
    const TonalPatch& here = m_patches[patch];
    const TonalPatch& there = m_patches[end];
    for (std::size_t channel = 0; channel < kTonalChannels; ++channel) {
        const double rise = here.Mean(channel) - there.Mean(channel);
        if (Quotient(rise, here.lightness - there.lightness) > kLeastSlope)
            return true;
    }
    return false;
}

void TonalResolutionData::ComputeDynamicRange()
{
    constexpr std::size_t kLightest = 0;
    constexpr std::size_t kDarkest = kPatches - 1;
    std::size_t beyondLight = 1;
    while (beyondLight < kPatches && !IsTellingApart(beyondLight, kLightest))
        ++beyondLight;
    std::size_t fromDark = kDarkest; // One more than the patch that is looked at.
    while (fromDark > 0 && !IsTellingApart(fromDark - 1, kDarkest))
        --fromDark;
    m_iIndexMinDynamicRange = static_cast<std::int32_t>(beyondLight - 1);
    m_iIndexMaxDynamicRange = static_cast<std::int32_t>(fromDark);

    const auto between = [this](std::size_t dark, std::size_t light) {
        return FiniteOrZero(DensityOfLightness(m_patches[dark].lightness)
            - DensityOfLightness(m_patches[light].lightness));
    };
    m_dIT8DynamicRange = between(kDarkest, kLightest);
    m_dScannerDynamicRange = between(fromDark, beyondLight - 1);
}

void TonalResolutionData::ComputeLinearity()
{
    std::array<double, kPatches> lightness{};
    std::array<double, kPatches> scan{};
    for (std::size_t channel = 0; channel < kTonalChannels; ++channel) {
        for (std::size_t i = 0; i < kPatches; ++i) {
            lightness[i] = m_patches[i].lightness;
            scan[i] = m_patches[i].scan[channel];
        }
        m_fit[channel] = FitLine(lightness, scan);
    }
}

void TonalResolutionData::ComputeDeviations()
{
    m_dMaxDarkDeviation = 0.0;
    m_dMaxLightDeviation = 0.0;
    for (const TonalPatch& patch : m_patches) {
        // Not the patch's density, which is 0 where black has an infinite one.
        const bool isDark = DensityOfLightness(patch.lightness) > kDarkDensity;
        double& largest = isDark ? m_dMaxDarkDeviation : m_dMaxLightDeviation;
        for (std::size_t channel = 0; channel < kTonalChannels; ++channel)
            largest = std::max(largest, std::fabs(DeviationOf(patch, channel)));
    }
}

void TonalResolutionData::ComputeBitDepths()
{
    // The targets are kept for the file's sake: the patches nearest to them on every target made
    // so far are these two, and they are used on purpose whatever the densities are.
    m_dBitDepthLightTarget = 0.2;
    m_dBitDepthDarkTarget = 1.9;
    m_iBitDepthLightIndex = 2;
    m_iBitDepthDarkIndex = 20;
    const auto bitsOf = [this](std::int32_t index, TonalTriple<double>& bits) {
        const TonalPatch& patch = m_patches[static_cast<std::size_t>(index)];
        for (std::size_t channel = 0; channel < kTonalChannels; ++channel)
            bits[channel] =
                NoiseFreeBits(patch.count, patch.sum[channel], patch.sumOfSquares[channel]);
    };
    bitsOf(m_iBitDepthLightIndex, m_dBitDepthLight);
    bitsOf(m_iBitDepthDarkIndex, m_dBitDepthDark);
}

} // namespace vireo
