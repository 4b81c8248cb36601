#pragma once

#include "testfile/TestFileHeader.h"

#include <array>
#include <optional>
#include <string>

namespace vireo {

/// What the header of a light profile tells: the scanner, its cameras and when the profile was
/// taken. Texts are Windows-1252, without line ends. A key that a file lacks is not set; what has
/// a usual value is that.
struct LightProfileRecord {
    static constexpr std::size_t kCameras = 8;

    bool isG3 = false; ///< "[G3 Light Profile]", else "[Light Profile]".
    std::string programName;
    std::string programVersion;
    std::string programBuild;
    std::string date;
    std::string time;
    std::string scannerName;
    std::string scannerID;
    std::optional<int> firmwareRevision;
    std::optional<int> firmwareBuild;
    std::optional<int> generation;
    std::optional<int> scannerFamily;
    std::optional<int> resolution; ///< Dots per inch.
    bool colorScanner = false;
    bool corrected = false;
    bool isSigned32 = false;         ///< Samples are signed 32-bit numbers, else bytes.
    std::optional<int> scannerWidth; ///< In 1/1200 inch.
    std::optional<std::array<int, 3>> centerLines;
    std::optional<std::array<int, 3>> magnification;
    int cameraCount = 0;
    std::array<int, kCameras> cameraPixels{}; ///< 0 for a camera that is not there.
    int cameraUsed = TestFileHeader::kAllCameras;
    /// 0 red, 1 green, 2 blue, TestFileHeader::kColorGray, or kColorInterleaved for all three.
    int color = TestFileHeader::kColorGray;
    std::optional<int> height; ///< Lines.

    /// Takes the values of a header's keys.
    static LightProfileRecord Of(const TestFileHeader& header);
    /// The whole header with these keys, its data offset included.
    TestFileHeader Header() const;

    /// The data are red, green and blue, three samples a pixel; else there is one plane.
    bool IsInterleaved() const;
};

} // namespace vireo
