#include "scanner/SimulatedSignal.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace vireo {

/// Random numbers that are the same on every system; those of the standard library's
/// distributions are not.
class Chance {
public:
    explicit Chance(std::uint32_t seed) : m_engine(seed) { }

    /// Evenly from -1 to 1.
    double Even() { return static_cast<std::uint32_t>(m_engine()) * (2.0 / 4294967295.0) - 1.0; }
    /// Nearly normal, of mean 0 and standard deviation 1: the sum of twelve.
    double Normal()
    {
        double sum = 0.0;
        for (int i = 0; i < 12; ++i)
            sum += Even();
        return sum / 2.0;
    }

private:
    std::mt19937 m_engine;
};

namespace {

constexpr double kWhiteLevel = 205.0; ///< Of the sheet where the lamp is brightest, and corrected.
constexpr double kRollerLight = 0.1;  ///< What the roller sends back of it.
constexpr double kGainSteps = 256.0;
constexpr double kOffsetPerLevel = 4.0;

double GainFactor(int gain)
{
    return 0.5 + gain / kGainSteps;
}

double Square(double value)
{
    return value * value;
}

/// -1 at the first of `count` pixels to 1 at the last.
double Across(std::int64_t pixel, std::int64_t count)
{
    return count > 1 ? 2.0 * static_cast<double>(pixel) / static_cast<double>(count - 1) - 1.0
                     : 0.0;
}

/// A number that looks like chance but is the same for the same inputs.
std::uint32_t Scrambled(std::uint64_t number, std::uint32_t seed, std::uint32_t plane)
{
    std::uint64_t bits = number * 0x9E3779B97F4A7C15U + seed * 0xBF58476D1CE4E5B9U + plane;
    bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBU;
    return static_cast<std::uint32_t>(bits >> 32);
}

} // namespace

SimulatedSignal::SimulatedSignal(const ScannerIdentity& identity, std::uint32_t seed, bool corrects)
    : m_identity(identity),
      m_seed(seed)
{
    Chance chance(seed);
    MakeSensors(chance);
    MakeLamp(chance);
    Adjust(chance);
    m_settings.correction = corrects ? 1 : 0;
    constexpr std::size_t kNoiseValues = 65536;
    m_noise.resize(kNoiseValues);
    std::ranges::generate(m_noise, [&] { return static_cast<float>(chance.Normal()); });
}

void SimulatedSignal::MakeSensors(Chance& chance)
{
    constexpr double kPattern = 0.006;
    for (int camera = 0; camera < m_identity.cameras; ++camera)
        for (int plane = 0; plane < m_identity.Planes(); ++plane) {
            Sensor& sensor =
                m_sensors[static_cast<std::size_t>(camera)][static_cast<std::size_t>(plane)];
            sensor.sensitivity = 1.0 + 0.08 * chance.Even();
            sensor.dark = 4.0 + 2.0 * chance.Even();
            const int pixels = m_identity.cameraPixels[static_cast<std::size_t>(camera)];
            sensor.pattern.resize(static_cast<std::size_t>(pixels + 2 * kStitchReach));
            std::ranges::generate(
                sensor.pattern, [&] { return static_cast<float>(kPattern * chance.Normal()); });
        }
}

void SimulatedSignal::MakeLamp(Chance& chance)
{
    const auto pixels = static_cast<std::int64_t>(m_identity.LinePixels());
    const double tilt = 0.015 * chance.Even();
    for (int plane = 0; plane < m_identity.Planes(); ++plane) {
        // The ends of a lamp lose more of some colours than of others.
        const double fall = 0.10 + 0.02 * chance.Even();
        const double ripple = 0.004 * (1.0 + chance.Even());
        const double phase = std::numbers::pi * chance.Even();
        std::vector<float>& lamp = m_planes[static_cast<std::size_t>(plane)].lamp;
        lamp.resize(static_cast<std::size_t>(pixels));
        for (std::int64_t pixel = 0; pixel < pixels; ++pixel) {
            const double u = Across(pixel, pixels);
            const double light = 1.0 - fall * u * u - 0.08 * std::pow(u, 8) + tilt * u
                + ripple * std::sin(9.0 * std::numbers::pi * u + phase);
            lamp[static_cast<std::size_t>(pixel)] = static_cast<float>(kWhiteLevel * light);
        }
    }
}

/// Finds the settings that the scanner was adjusted to, about as well as people do, and keeps the
/// light profile that the correction divides by.
void SimulatedSignal::Adjust(Chance& chance)
{
    for (std::size_t camera = 0; camera < m_settings.gain.size(); ++camera)
        for (std::size_t plane = 0; plane < m_settings.gain[camera].size(); ++plane) {
            const double wanted = 1.0 / m_sensors[camera][plane].sensitivity;
            m_settings.gain[camera][plane] =
                static_cast<int>(std::lround((wanted - 0.5) * kGainSteps + 7.0 * chance.Even()));
            m_settings.offset[camera][plane] = static_cast<int>(
                std::lround(-kOffsetPerLevel * m_sensors[camera][plane].dark / 2.0));
        }
    for (int& stitch : m_settings.stitch)
        stitch = static_cast<int>(std::lround(8.0 * chance.Even()));
    ComputeLevels();
    for (Plane& plane : m_planes) {
        plane.whiteProfile = plane.sheet;
        plane.darkProfile.resize(plane.sheet.size());
        // The roller's light is a known share of the sheet's.
        for (std::size_t pixel = 0; pixel < plane.sheet.size(); ++pixel)
            plane.darkProfile[pixel] = static_cast<float>(
                (plane.roller[pixel] - kRollerLight * plane.sheet[pixel]) / (1.0 - kRollerLight));
    }
}

std::int64_t SimulatedSignal::CameraStart(int camera) const
{
    std::int64_t start = 0;
    for (int i = 0; i < camera; ++i)
        start += m_identity.cameraPixels[static_cast<std::size_t>(i)];
    return start;
}

std::int64_t SimulatedSignal::CameraEnd(int camera) const
{
    const bool isLast = camera + 1 == m_identity.cameras;
    return CameraStart(camera + 1)
        + (isLast ? 0 : m_settings.stitch[static_cast<std::size_t>(camera)]);
}

double SimulatedSignal::RawLevel(int plane, int camera, std::int64_t pixel, double light) const
{
    const auto c = static_cast<std::size_t>(camera);
    const auto p = static_cast<std::size_t>(plane);
    const Sensor& sensor = m_sensors[c][p];
    const std::int64_t own = pixel - CameraStart(camera);
    const double lens = 1.0 - 0.03 * Square(Across(own, m_identity.cameraPixels[c]));
    // What lies outside a camera of very few pixels is seen by its first or last one.
    const auto index = static_cast<std::size_t>(std::clamp<std::int64_t>(
        own + kStitchReach, 0, static_cast<std::int64_t>(sensor.pattern.size()) - 1));
    const double seen = light * lens * sensor.sensitivity * (1.0 + sensor.pattern[index]);
    return GainFactor(m_settings.gain[c][p]) * (seen + sensor.dark)
        + m_settings.offset[c][p] / kOffsetPerLevel;
}

void SimulatedSignal::ComputeLevels()
{
    for (int plane = 0; plane < m_identity.Planes(); ++plane)
        ComputePlane(plane);
    m_bComputed = true;
}

namespace {

/// The standard deviation of a level: what the electronics add, and more with more light.
double NoiseOf(double level)
{
    return 0.35 + 0.045 * std::sqrt(std::max(level, 0.0));
}

} // namespace

void SimulatedSignal::ComputePlane(int number)
{
    Plane& plane = m_planes[static_cast<std::size_t>(number)];
    const std::size_t pixels = plane.lamp.size();
    for (auto* levels : {&plane.sheet, &plane.roller, &plane.sheetNoise, &plane.rollerNoise})
        levels->resize(pixels);
    const bool corrects = m_settings.correction != 0 && !plane.whiteProfile.empty();
    int camera = 0;
    for (std::size_t i = 0; i < pixels; ++i) {
        const auto pixel = static_cast<std::int64_t>(i);
        while (camera + 1 < m_identity.cameras && pixel >= CameraEnd(camera))
            ++camera;
        double factor = 1.0;
        double dark = 0.0;
        if (corrects) {
            dark = plane.darkProfile[i];
            factor = kWhiteLevel / std::max(plane.whiteProfile[i] - plane.darkProfile[i], 1.0F);
        }
        const double sheet = RawLevel(number, camera, pixel, plane.lamp[i]);
        const double roller = RawLevel(number, camera, pixel, kRollerLight * plane.lamp[i]);
        plane.sheet[i] = static_cast<float>((sheet - dark) * factor);
        plane.roller[i] = static_cast<float>((roller - dark) * factor);
        plane.sheetNoise[i] = static_cast<float>(NoiseOf(sheet) * factor);
        plane.rollerNoise[i] = static_cast<float>(NoiseOf(roller) * factor);
    }
}

void SimulatedSignal::Compute(std::uint64_t number, bool hasSheet, ScanLine& line)
{
    if (!m_bComputed)
        ComputeLevels();
    const std::size_t mask = m_noise.size() - 1;
    for (int plane = 0; plane < m_identity.Planes(); ++plane) {
        const Plane& from = m_planes[static_cast<std::size_t>(plane)];
        const std::vector<float>& levels = hasSheet ? from.sheet : from.roller;
        const std::vector<float>& noise = hasSheet ? from.sheetNoise : from.rollerNoise;
        auto& samples = line.planes[static_cast<std::size_t>(plane)];
        samples.resize(levels.size());
        const std::size_t first = Scrambled(number, m_seed, static_cast<std::uint32_t>(plane));
        for (std::size_t pixel = 0; pixel < levels.size(); ++pixel) {
            const float level = levels[pixel] + noise[pixel] * m_noise[(first + pixel) & mask];
            samples[pixel] = static_cast<std::uint8_t>(std::clamp(level + 0.5F, 0.0F, 255.0F));
        }
    }
}

} // namespace vireo
