#pragma once

#include "platform/PositionalFile.h"
#include "testfile/TestFileHeader.h"
#include "viewers/controls/ProfileLine.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vireo {

/// What came of reading an oscilloscope file.
enum class [[nodiscard]] OscilloscopeResult{
    Ok,
    CantOpen,
    IsKitbag, ///< A packed dump that has to be unpacked first.
    IsNoiseTest,
    IsLightProfile,
    WrongKind,
    BadHeader,
};

/// As what a file is read: as its tag says, or as one kind whatever its tag.
enum class OscilloscopeKind { ByTag, Oscilloscope, Mtf };

/// The raw line signals of a scanner's cameras from an "[Oscilloscope]" or "[MTF]" file.
///
/// Read takes the header only; a line is read from the file when it is asked for, so a file of any
/// size opens in the same time. The file stays open for that.
class OscilloscopeData {
public:
    static constexpr int kCameras = ProfileCameras::kCameras;
    /// A line is held whole for drawing up to this many pixels a plane; more are not shown.
    static constexpr std::int64_t kMaxShownPixels = std::int64_t{1} << 28;

    /// Reads the header of a file and forgets what was read before. The kind of another test's file
    /// is told so that it can be handed on, unless the kind is forced.
    OscilloscopeResult Read(
        const std::filesystem::path& path, OscilloscopeKind kind = OscilloscopeKind::ByTag);

    /// One clear sentence for a result other than Ok.
    std::string DescribeFailure(OscilloscopeResult result) const;

    const std::filesystem::path& Path() const { return m_path; }
    const std::string& HeaderText() const { return m_headerText; }
    bool IsMtf() const { return m_bMtf; }

    // Header values, with their defaults where the key is missing.
    bool m_bColorScanner = false;
    int m_iColor = 0; ///< Header code: 0 red, 1 green, 2 blue, 4 gray, 254 interleaved.
    int m_iCameraUsed = 0;
    int m_iCameraCount = 0;
    bool m_bCorrected = false;
    double m_dScannerWidthFactor = 8.5; ///< Scan width in units of 4.24 inches.
    int m_iShownColor = 1;              ///< 0 red, 1 green, 2 blue, 4 gray.
    int m_iPlaneCount = 2;              ///< 1 for a gray file, 2 for three planes.
    std::string m_Date;
    std::string m_Time;
    std::string m_ScannerName;
    std::string m_ScannerID;
    int m_iScannerFamily = 5;
    int m_iGeneration = 0;
    int m_iFirmwareRevision = 0;
    std::array<int, kCameras> m_iCameraPixels{};
    std::array<int, 3> m_iMagnification{};
    std::array<int, 3> m_iCenterLines{};

    /// Header items that are missing, as reported, in the order of reporting.
    const std::vector<std::string>& MissingItems() const { return m_missing; }

    /// Whether the data hold red, green and blue; else there is one plane, kept as green.
    bool IsInterleaved() const;
    bool HasPlane(Plane plane) const;
    /// Bytes of one plane, all lines together.
    std::int64_t PlaneLength() const { return m_planeLength; }
    /// Sum of the camera pixel counts.
    std::int64_t LineWidth() const { return m_lineWidth; }
    std::int64_t LineCount() const { return m_lineCount; }
    /// Pixels that line `line` (0-based) really has: the line width, or what the data hold of it.
    std::int64_t PixelsOfLine(std::int64_t line) const;
    /// Bytes of data block behind the header.
    std::int64_t DataLength() const { return m_dataLength; }

    /// Where the cameras lie in a line and how wide a pixel is.
    ProfileCameras Cameras() const;
    /// Dots per inch of the line: its length over the scan width, down to whole hundreds.
    int Resolution() const;

    /// Whether the camera-adjustment layout applies: generation 9 or more with 5 or more cameras.
    bool UsesCameraAdjustment() const;

    /// Reads line `line` (0-based) for drawing; false when the file cannot give it any more.
    bool ReadLine(std::int64_t line, ProfileLine& profile) const;

    /// Lowest, highest and mean value of a stretch of a line.
    struct Statistics {
        int min = 0;
        int max = 0;
        double mean = 0.0;
    };
    struct CameraStatistics {
        int camera = 0;
        Statistics statistics;
    };
    struct PlaneStatistics {
        Statistics line;
        std::vector<CameraStatistics> cameras; ///< Those that have pixels, in order.
    };
    /// One entry a plane, in the order of Plane; nothing for a plane that is absent.
    using LineStatistics = std::array<std::optional<PlaneStatistics>, 3>;
    /// Statistics of the planes of line `line`, read in pieces, so of any length; nothing when the
    /// line has no pixels or the file cannot give them.
    LineStatistics ComputeStatistics(std::int64_t line) const;

    /// Reads pixels `first` <= i < first + count of a line into the planes that the file has (the
    /// others stay empty); false when the file cannot give them all.
    using PlaneBytes = std::array<std::vector<std::uint8_t>, 3>;
    bool ReadPixels(
        std::int64_t line, std::int64_t first, std::int64_t count, PlaneBytes& planes) const;

    /// What follows the line data of an MTF file: five further planes, three values and two tables.
    struct MtfExtra {
        std::array<std::vector<std::uint8_t>, 5> planes; ///< PlaneLength() bytes each.
        std::array<std::int32_t, 3> values{};
        std::vector<std::int64_t> table; ///< One a camera boundary.
        std::vector<std::uint8_t> flags; ///< One a camera boundary.
    };
    /// Reads the MTF block; nothing for other files and when the data end before it.
    std::optional<MtfExtra> ReadMtfExtra() const;

private:
    OscilloscopeResult ReadKind();
    void ReadHeaderValues(const TestFileHeader& header);
    void ReadCameraPixels(const TestFileHeader& header);
    void ReadScannerKind(const TestFileHeader& header);
    void LayOutData();
    std::int64_t PlanesInData() const { return IsInterleaved() ? 3 : 1; }
    std::int64_t MtfBoundaries() const { return (m_bHasFifthCamera ? 8 : 4) - 1; }

    std::filesystem::path m_path;
    PositionalFile m_file;
    std::string m_headerText;
    std::vector<std::string> m_missing;
    FileStatus m_openStatus = FileStatus::Ok;
    HeaderResult m_headerStatus = HeaderResult::Ok;
    mutable std::vector<std::uint8_t> m_interleaved; ///< Scratch of ReadPixels.
    bool m_bMtf = false;
    bool m_bHasFifthCamera = false;
    std::int64_t m_dataOffset = 0;
    std::int64_t m_dataLength = 0;
    std::int64_t m_planeLength = 0;
    std::int64_t m_lineWidth = 0;
    std::int64_t m_lineCount = 1;
};

} // namespace vireo
