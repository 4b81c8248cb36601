#pragma once

#include "scanner/ScannerDevice.h"

#include <array>
#include <cstdint>
#include <vector>

namespace vireo {

class Chance;

/// What the cameras of a simulated scanner see, as plain arithmetic.
///
/// A lamp lights the width, brightest near the middle; each camera's lens darkens towards the
/// camera's ends, its sensor has a sensitivity, a dark level and a fixed pattern of its own. Gain
/// multiplies what it sees, the offset is added. The cameras overlap: the stitch value says at
/// which pixel of the line one is left for the next, and there the signal steps. Each pixel of each
/// line has some noise, more where there is more light. A corrected line is divided by the light
/// profile as it was when the scanner was adjusted.
class SimulatedSignal {
public:
    /// How far a boundary can be moved to either side, in pixels.
    static constexpr int kStitchReach = 32;

    struct Settings {
        std::array<int, ScannerIdentity::kMostCameras> stitch{};
        using OfPlanes = std::array<int, ScannerIdentity::kMostPlanes>;
        std::array<OfPlanes, ScannerIdentity::kMostCameras> gain{};
        std::array<OfPlanes, ScannerIdentity::kMostCameras> offset{};
        int correction = 0; ///< 0 or 1.
    };

    /// A scanner with the settings that it was adjusted to. The seed tells it from its sisters.
    SimulatedSignal(const ScannerIdentity& identity, std::uint32_t seed, bool corrects);

    const ScannerIdentity& Identity() const { return m_identity; }
    const Settings& CurrentSettings() const { return m_settings; }
    void ChangeSettings(const Settings& settings)
    {
        m_settings = settings;
        m_bComputed = false;
    }

    /// The line of a number, over the sheet or over the dark roller.
    void Compute(std::uint64_t number, bool hasSheet, ScanLine& line);

private:
    /// What is peculiar to one plane of one camera.
    struct Sensor {
        double sensitivity = 1.0;
        double dark = 0.0; ///< Level without light.
        /// Share by which each pixel differs; begins kStitchReach pixels left of the camera.
        std::vector<float> pattern;
    };
    /// A plane's light and what comes of it under the present settings, by pixel of the line.
    struct Plane {
        std::vector<float> lamp;        ///< Level of the sheet at sensitivity and gain 1.
        std::vector<float> darkProfile; ///< As adjusted, for the correction.
        std::vector<float> whiteProfile;
        std::vector<float> sheet;  ///< Levels expected over the sheet,
        std::vector<float> roller; ///< over the roller,
        std::vector<float> sheetNoise;
        std::vector<float> rollerNoise; ///< and their standard deviations.
    };

    void MakeSensors(Chance& chance);
    void MakeLamp(Chance& chance);
    void Adjust(Chance& chance);
    void ComputeLevels();
    void ComputePlane(int plane);
    /// The level without correction of a pixel, as a camera sees it.
    double RawLevel(int plane, int camera, std::int64_t pixel, double light) const;
    std::int64_t CameraStart(int camera) const;
    /// The pixel at which the line leaves a camera for the next.
    std::int64_t CameraEnd(int camera) const;

    ScannerIdentity m_identity;
    Settings m_settings;
    std::array<std::array<Sensor, ScannerIdentity::kMostPlanes>, ScannerIdentity::kMostCameras>
        m_sensors;
    std::array<Plane, ScannerIdentity::kMostPlanes> m_planes;
    std::vector<float> m_noise; ///< Normally distributed; its length is a power of two.
    std::uint32_t m_seed;
    bool m_bComputed = false;
};

} // namespace vireo
