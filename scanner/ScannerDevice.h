#pragma once

#include "scanner/ScannerError.h"

#include <array>
#include <cstdint>
#include <numeric>
#include <string>
#include <vector>

namespace vireo {

/// What a scanner tells about itself.
struct ScannerIdentity {
    static constexpr int kMostCameras = 8;
    static constexpr int kMostPlanes = 3;
    /// No scanner has longer lines; a library that claims more is not believed.
    static constexpr std::int64_t kMostPixels = std::int64_t{1} << 20;

    std::string name; ///< Windows-1252, as the id.
    std::string id;   ///< Serial number; may be empty.
    int family = 0;
    int generation = 0;
    bool isColour = false;
    int cameras = 0;
    std::array<int, kMostCameras> cameraPixels{}; ///< By camera, 0 for A; 0 pixels: not there.
    int widthPer1200 = 0;                         ///< Scan width in 1/1200 inch.

    /// Red, green and blue, or the one plane of a black-and-white scanner.
    int Planes() const { return isColour ? kMostPlanes : 1; }
    std::size_t LinePixels() const
    {
        return static_cast<std::size_t>(
            std::accumulate(cameraPixels.begin(), cameraPixels.end(), 0));
    }
    /// Dots per inch across the width.
    int Resolution() const;

    /// Whether lines of such a scanner can be taken: NoWidth without a width, UnknownScanner for
    /// cameras or pixels that no scanner has.
    ScannerError Check() const;

    bool operator==(const ScannerIdentity&) const = default;
};

/// One line of pixels for each plane, 8 bits a pixel; all planes are of the same length. Planes
/// that the scanner does not have are empty.
struct ScanLine {
    std::array<std::vector<std::uint8_t>, ScannerIdentity::kMostPlanes> planes;
};

enum class PaperStatus { None = 0, Loaded = 1 };

/// What can be set on a scanner.
enum class ScannerSetting {
    Stitch,     ///< Where one camera's pixels end and the next one's begin, in pixels.
    Gain,       ///< Of a camera's plane.
    Offset,     ///< Of a camera's plane.
    Correction, ///< 1: lines are corrected for the light profile; 0: as the cameras see them.
};
constexpr int kScannerSettings = 4;

/// Which of several values of a setting: the camera (for the stitch value the one left of the
/// boundary) and the plane, both from 0. What a setting does not have is 0.
struct SettingPlace {
    int camera = 0;
    int plane = 0;
};

/// What the values of a setting can be.
struct SettingRange {
    int lowest = 0;
    int highest = 0;
    bool canSet = false; ///< Otherwise it can only be read.
};

/// A scanner. Every call answers with an error code; values are only given with Ok. A device is
/// used by one thread at a time.
class ScannerDevice {
public:
    ScannerDevice() = default;
    ScannerDevice(const ScannerDevice&) = delete;
    ScannerDevice& operator=(const ScannerDevice&) = delete;
    /// Closes the device.
    virtual ~ScannerDevice() = default;

    /// Opens the scanner; one that is open stays so. All other calls answer NotReady before.
    virtual ScannerError Open() = 0;
    /// Nothing happens when it is not open.
    virtual void Close() = 0;

    virtual ScannerError GetIdentity(ScannerIdentity& identity) = 0;
    /// Answers at once.
    virtual ScannerError GetPaperStatus(PaperStatus& status) = 0;
    /// Waits for the next line and gives it. The buffers of `line` are used again.
    virtual ScannerError AcquireLine(ScanLine& line) = 0;

    /// NotSupported for a setting that the scanner does not have.
    virtual ScannerError GetRange(ScannerSetting setting, SettingRange& range) = 0;
    virtual ScannerError GetValue(ScannerSetting setting, SettingPlace place, int& value) = 0;
    virtual ScannerError SetValue(ScannerSetting setting, SettingPlace place, int value) = 0;

    /// The real code behind LibraryError.
    virtual ScannerError LastError() const { return ScannerError::Ok; }
    /// What more there is to say of the last error, for the log; may be empty.
    virtual std::string ErrorDetail() const { return {}; }
    /// Whether the lines are computed, so that nothing is measured.
    virtual bool IsSimulated() const { return false; }
};

/// How many values of a setting a scanner has: its cameras (boundaries for the stitch value; one
/// for what the whole scanner has) and, for those of a plane, its planes.
int CamerasOf(ScannerSetting setting, const ScannerIdentity& identity);
int PlanesOf(ScannerSetting setting, const ScannerIdentity& identity);
/// Whether there is such a value.
bool HasPlace(ScannerSetting setting, SettingPlace place, const ScannerIdentity& identity);
/// The error of a value outside its range.
ScannerError OutOfRange(ScannerSetting setting);

} // namespace vireo
