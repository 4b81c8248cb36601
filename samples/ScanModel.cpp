#include "samples/ScanModel.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace vireo {

namespace {

constexpr int kOne = 16; // One pixel, and one level, in the model's fixed point.
constexpr int kFullGain = 4096;
constexpr int kWhite = 250; // Reflectances, of 256.
constexpr int kPrinted = 34;
constexpr int kBar = 44;
constexpr int kSurroundings = 9;
constexpr std::array<int, 8> kOverlapAt600{0, 3, -2, 4, -3, 2, -4, 1};
constexpr std::array<int, 8> kBlurAt600{20, 26, 22, 38, 24, 30, 21, 28};
constexpr std::array<int, 8> kCameraGain{4096, 3850, 4010, 3720, 3930, 4060, 3800, 3890};
constexpr std::array<int, 8> kStitchStep{0, 34, -26, 40, -38, 22, -30, 16};

/// Sensitivities of red, green and blue before and after correction, in levels at full signal.
constexpr std::array<int, 3> kUncorrectedLevel{204, 222, 188};
constexpr std::array<int, 3> kCorrectedLevel{240, 238, 235};

std::int32_t IntegerRoot(std::int32_t value)
{
    std::int32_t root = 0;
    while ((root + 1) * (root + 1) <= value)
        ++root;
    return root;
}

int ScaledToDpi(int at600, int dpi)
{
    return at600 * dpi / 600;
}

/// Mixes two reflectances by the distance to the edge between them, which is positive on the far
/// side.
int AcrossEdge(int before, int after, std::int32_t distance16, int blur16)
{
    const std::int32_t share = 128 + std::clamp(distance16, -blur16, blur16) * 128 / blur16;
    return before + (after - before) * share / 256;
}

} // namespace

ScanModel::ScanModel(const ScanSetup& setup) : m_setup(setup), m_random(setup.seed)
{
    const int width = std::accumulate(setup.cameraPixels.begin(), setup.cameraPixels.end(), 0);
    m_pixels.reserve(static_cast<std::size_t>(width));
    for (std::size_t camera = 0; camera < setup.cameraPixels.size(); ++camera)
        AddCamera(static_cast<int>(camera), setup.cameraPixels[camera]);
    AddDust();

    constexpr int kReadoutVariance = 90;
    constexpr int kShotVarianceShift = 2;
    for (std::int32_t signal16 = 0; signal16 <= 256 * kOne; ++signal16) {
        const std::int32_t variance = kReadoutVariance + (signal16 >> kShotVarianceShift);
        m_deviation16.push_back(IntegerRoot(variance));
    }
}

void ScanModel::AddCamera(int camera, int pixels)
{
    const auto row = static_cast<std::size_t>(camera) % kOverlapAt600.size();
    const int overlap16 = ScaledToDpi(kOverlapAt600[row] * kOne, m_setup.dpi);
    const int blur16 = std::max(ScaledToDpi(kBlurAt600[row], m_setup.dpi), 6);
    const auto start = static_cast<std::int32_t>(m_pixels.size());
    if (camera > 0)
        m_boundaries16.push_back(start * kOne);
    for (int i = 0; i < pixels; ++i) {
        m_pixels.push_back({(start + i) * kOne + overlap16, GainAt(camera, i, pixels),
            static_cast<std::int16_t>(blur16)});
    }
}

std::int32_t ScanModel::GainAt(int camera, int index, int pixels)
{
    const auto row = static_cast<std::size_t>(camera) % kCameraGain.size();
    if (m_setup.corrected) // What the correction leaves: steps between cameras, a little pattern.
        return kFullGain - 60 + kStitchStep[row] + m_random.Between(-9, 9);
    // Light falls off towards the ends of each camera with the square of the distance.
    const std::int64_t u = 2048LL * index / std::max(pixels - 1, 1) - 1024;
    const auto shading = static_cast<std::int32_t>(kFullGain - ((1150 * u * u) >> 20));
    const std::int32_t oddEven = index % 2 == 0 ? 14 : -14; // Two readout chains.
    const std::int32_t pattern = kFullGain + oddEven + m_random.Between(-80, 80);
    const std::int64_t gain = std::int64_t{kCameraGain[row]} * shading / kFullGain * pattern;
    return static_cast<std::int32_t>(gain / kFullGain);
}

void ScanModel::AddDust()
{
    const int width = LineWidth();
    const int specks = std::min(14, width / 200);
    for (int speck = 0; speck < specks; ++speck) {
        const int start = m_random.Between(0, width - 8);
        const int length = m_random.Between(2, 6);
        // The correction was taken with most of this dust in place.
        const int kept =
            m_setup.corrected ? m_random.Between(3850, 4040) : m_random.Between(1500, 3500);
        for (int i = start; i < start + length; ++i) {
            std::int32_t& gain = m_pixels[static_cast<std::size_t>(i)].gain;
            gain = static_cast<std::int32_t>(std::int64_t{gain} * kept / kFullGain);
        }
    }
}

int ScanModel::PrintedLines(std::int32_t target16, int blur16) const
{
    const std::int32_t halfPattern16 = ScaledToDpi(110 * kOne, m_setup.dpi);
    const std::int32_t period16 = std::max(ScaledToDpi(14 * kOne, m_setup.dpi), 6 * kOne);
    for (const std::int32_t boundary16 : m_boundaries16) {
        const std::int32_t from16 = target16 - (boundary16 - halfPattern16);
        if (from16 < 0 || from16 >= 2 * halfPattern16)
            continue;
        const std::int32_t phase16 = from16 % period16;
        const std::int32_t half16 = period16 / 2;
        const std::int32_t distance16 = phase16 < half16
            ? -std::min(phase16, half16 - phase16)
            : std::min(phase16 - half16, period16 - phase16);
        return AcrossEdge(kPrinted, kWhite, distance16, blur16);
    }
    return kWhite;
}

int ScanModel::Reflectance(std::int32_t target16, int blur16, int line) const
{
    const std::int32_t end16 = LineWidth() * kOne;
    const std::int32_t margin16 = end16 / 40;
    const std::int32_t inside16 = std::min(target16 - margin16, end16 - margin16 - target16);
    int paper = PrintedLines(target16, blur16);
    if (m_setup.lineCount > 1) {
        const std::int32_t step16 = end16 / m_setup.lineCount;
        const std::int32_t centre16 = step16 * line + step16 / 2;
        const std::int32_t half16 = end16 / 80;
        paper = AcrossEdge(
            std::min(kBar, paper), paper, std::abs(target16 - centre16) - half16, 2 * blur16);
    }
    return AcrossEdge(kSurroundings, paper, inside16, 2 * blur16);
}

void ScanModel::FillLine(int line, int plane, std::uint8_t* out, int step)
{
    const auto channel = static_cast<std::size_t>(plane);
    const int level = m_setup.corrected ? kCorrectedLevel[channel] : kUncorrectedLevel[channel];
    const int dark16 = (m_setup.corrected ? 2 : 8) * kOne;
    const int colourShift16 = (plane - 1) * 5; // Colours do not meet quite in one point.
    constexpr int kReflectanceAndGain = 256 * kFullGain;

    for (const Pixel& pixel : m_pixels) {
        const int reflectance = Reflectance(pixel.target16 + colourShift16, pixel.blur16, line);
        const std::int64_t light = std::int64_t{level * kOne} * reflectance * pixel.gain;
        const auto signal16 = static_cast<int>(
            std::clamp<std::int64_t>(dark16 + light / kReflectanceAndGain, 0, 256 * kOne));
        const int noise16 = m_deviation16[static_cast<std::size_t>(signal16)] * m_random.Normal()
            / SampleRandom::kNormalDeviation;
        *out =
            static_cast<std::uint8_t>(std::clamp((signal16 + noise16 + kOne / 2) / kOne, 0, 255));
        out += step;
    }
}

} // namespace vireo
