#pragma once

#include "platform/PositionalFile.h"
#include "testfile/TestFileHeader.h"
#include "viewers/controls/ProfileLine.h"
#include "viewers/noise/NoiseMarks.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vireo {

struct NoiseLayout;

/// What came of reading a noise test file.
enum class [[nodiscard]] NoiseResult{
    Ok, CantOpen,
    WrongKind, ///< Neither a "[Noise Test]" text header nor a binary header of type 19.
    BadHeader, ///< Tagged as a noise test, but the header cannot be read.
    BadLength, ///< The line length is negative.
    TooShort,  ///< The file ends before the planes that its header announces.
    TooLarge,  ///< The line has more than kMaxPixels pixels.
};

/// One plane of a noise line and what is worked out from it.
struct NoisePlane {
    ProfileLine::Trace trace; ///< One byte a pixel.
    int average = 0;          ///< Rounded; 0 for an empty line.
    std::vector<std::int32_t> dips;
    std::vector<std::int32_t> peaks; ///< Both as FindNoiseMarks gives them.

    NoiseBand Band(int percent = NoiseBand::kPercent) const
    {
        return {trace.samples.empty() ? NoiseBand::kDefaultAverage : average, percent};
    }
    /// How many stretches leave the band of a limit in percent.
    int StretchesOutside(int percent) const;
    const std::vector<std::int32_t>& Marks(NoiseMarkKind kind) const
    {
        return kind == NoiseMarkKind::Dip ? dips : peaks;
    }
};

/// The record of a noise test: one scan line of a uniform target for each colour plane. Planes are
/// named by ShownColour without All: a gray file keeps its one plane as green.
///
/// Two forms of file are read: the text header with the planes behind it, and the older one with a
/// 48-byte binary header, the planes and a 44-byte text trailer. A line is held whole.
class NoiseData {
public:
    static constexpr std::int64_t kMaxPixels = std::int64_t{1} << 28;
    static constexpr double kDefaultWidthFactor = 8.5;
    static constexpr int kDefaultLimitPercent = 5;

    /// Reads a file and works out averages and marks; forgets what was read before. After any
    /// result but Ok the record is empty.
    NoiseResult Read(const std::filesystem::path& path);
    /// One clear sentence for a result other than Ok.
    std::string DescribeFailure(NoiseResult result) const;

    /// Takes a line that comes from a scanner instead of a file: red, green and blue, or the one
    /// plane of a gray line; all of the same length, at most kMaxPixels. Works out what Read does.
    /// The plane shown and what is told besides stay where they can.
    void TakeLine(std::span<const std::vector<std::uint8_t>> planes);

    /// Sets the scan width, in 1/1200 inch.
    void SetScanWidth(int per1200);

    /// Writes the record in its text form: a header, then the planes. Complete or absent.
    FileStatus Save(const std::filesystem::path& path) const;

    /// Builds the summaries that drawing needs; what only computes does without.
    void Summarise();

    // The record.
    std::int32_t m_iLineLength = 0; ///< Pixels a plane.
    bool m_bHasColour = false;
    bool m_bHasGray = false; ///< There is a fourth plane; never so in a gray file.
    ShownColour m_shown = ShownColour::Green;
    double m_dWidthFactor = kDefaultWidthFactor; ///< Scan width in units of 4.24 inches.
    std::string m_ScannerName;

    // What the text form tells besides; empty where it does not.
    std::string m_ScannerID;
    std::string m_Date;
    std::string m_Time;
    std::optional<int> m_iNoiseLimit; ///< Percent.

    const std::filesystem::path& Path() const { return m_path; }
    /// The text header as it stands in the file; empty for the binary form.
    const std::string& HeaderText() const { return m_headerText; }

    /// A plane; null when the record has none of this colour. The gray of a gray file is its one
    /// plane.
    const NoisePlane* PlaneOf(ShownColour colour) const;
    const NoisePlane* ShownPlane() const { return PlaneOf(m_shown); }
    /// Average of the shown plane; 0 when it is missing.
    int ShownAverage() const;

    /// The planes that the file has, in the order in which they are stored.
    std::vector<ShownColour> Planes() const;

private:
    NoiseResult ReadForm(const PositionalFile& file);
    NoiseResult ReadText(const PositionalFile& file, const TestFileHeader& header);
    NoiseResult ReadBinary(const PositionalFile& file);
    void ReadHeaderValues(const TestFileHeader& header);
    NoiseResult ReadPlanes(const PositionalFile& file, const NoiseLayout& layout);
    NoisePlane& Slot(ShownColour colour);
    static void Evaluate(NoisePlane& plane);

    std::filesystem::path m_path;
    std::string m_headerText;
    FileStatus m_openStatus = FileStatus::Ok;
    HeaderResult m_headerStatus = HeaderResult::Ok;
    std::array<NoisePlane, 4> m_planes; ///< Red, green, blue, gray.
};

} // namespace vireo
