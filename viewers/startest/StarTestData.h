#pragma once

#include "platform/PositionalFile.h"
#include "testfile/TestFileHeader.h"
#include "viewers/startest/StarTestSweep.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

class WorkProgress;

/// What came of reading a star-test file.
enum class [[nodiscard]] StarTestResult{
    Ok,
    CantOpen,
    WrongKind, ///< Neither the tag of a star test nor any sweep.
    NoSweeps,  ///< Tagged as a star test, but without a sweep.
    Cancelled,
};

/// One row of the report that a live measurement keeps: a sweep's point deviations, each beside its
/// limit.
struct StarTestReportRow {
    struct Value {
        double deviation = 0.0;
        double limit = 0.0;
    };
    std::vector<Value> values; ///< One fewer than there are points.
    std::int32_t resolution = 0;
    bool isColour = false;
};

/// A star-test measurement: its sweeps, measured ones first and the averages of repeated ones
/// behind them, with their curves.
///
/// A file is read once, in one pass through a window of fixed size, and each sweep is analysed as
/// soon as it is complete. What a file announces costs memory only as far as its length can
/// justify.
class StarTestData {
public:
    /// More sweeps than any test has; further ones are not read.
    static constexpr std::int32_t kMostSweeps = 4096;
    /// All sweeps together have at most so many lines more than the file has room for.
    static constexpr std::int64_t kMostMissingLines = 16 * 1024;
    static constexpr std::size_t kLimits = 5;

    /// Reads a file and analyses its sweeps. After any result but Ok everything is as before.
    /// `progress`, if there is one, counts bytes, and may cancel.
    StarTestResult Read(const std::filesystem::path& path, WorkProgress* progress = nullptr);
    /// One clear sentence for the result of the last Read, if it was not Ok.
    std::string DescribeFailure(StarTestResult result) const;
    /// What does not come from a file: how the measurement is to be shown and judged.
    StarTestData WithoutSweeps() const;
    void Clear() { *this = WithoutSweeps(); }

    /// Writes the measured sweeps in the form that Read takes, completely or not at all. Records of
    /// averages are counted but not written: reading works them out again.
    FileStatus Write(const std::filesystem::path& path) const;

    /// Appends one line on the selected sweep to the log of all measurements,
    /// "StarTest/A2MotorVibrationTest.txt" in `folder`, which is made when it is missing. Date and
    /// time stand there as given.
    bool AppendSummary(
        const std::filesystem::path& folder, std::string_view date, std::string_view time) const;

    /// The report's row of a sweep: the deviations of its points, all but the last, each beside the
    /// limit of the same number; the last limit serves all further ones.
    StarTestReportRow ReportRow(const StarTestSweep& sweep) const;

    /// Selects a record; an index behind the last one stands for the last.
    void Select(std::int64_t index);
    /// The record that is shown; null when there is none.
    const StarTestSweep* SelectedSweep() const;
    /// Whether any record has a line.
    bool HasLines() const;
    /// How many of the records were measured; the others are averages that were worked out here.
    std::size_t MeasuredCount() const;

    /// The name of the raw picture from which the live measurement took a sweep: its round and its
    /// place in the round, each from 0. Nothing for an average.
    std::optional<std::string> RawPictureName(std::size_t index) const;

    const std::filesystem::path& Path() const { return m_path; }

    TestFileHeader m_header; ///< The common keys; no tag and no data offset.
    std::string m_TestName;
    std::int32_t m_iVersion = 0;
    std::int32_t m_iRepeat =
        0; ///< Rounds that the sweeps were measured in; 0: they were not repeated.
    std::vector<StarTestSweep> m_sweeps;
    std::size_t m_iSelectedIndex = 0;
    bool m_bStandardDeviation = false; ///< The application factor is told with its deviation.
    bool m_bYCurves = false;           ///< Y curves are visible at first.
    bool m_bSavePictures = false;      ///< The live measurement keeps its raw pictures.
    std::array<double, kLimits> m_dLimits{};

private:
    std::filesystem::path m_path;
    FileStatus m_openStatus = FileStatus::Ok;
};

} // namespace vireo
