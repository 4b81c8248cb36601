#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vireo {

/// One data line of a star-test file: what was measured at one scan line.
struct StarTestRow {
    float xPosition = 0.0F;           ///< Column at which the near-vertical line was met.
    float yPosition = 0.0F;           ///< Row at which the near-horizontal line was met.
    std::int32_t yPositionColumn = 0; ///< Column at which that row was measured.
    float wideLine = 0.0F;            ///< Position of the wide reference line, in pixels.
    std::int32_t timeStamp = 0;       ///< These three are an entry of the speed table.
    std::int32_t byteCount = 0;
    std::int32_t lineIndex = 0;
    float xLineWidth = 0.0F; ///< Widths of the thin lines, in pixels.
    float yLineWidth = 0.0F;
    std::int8_t xRestart = 0; ///< Not 0: the position jumps here, a new segment begins.
    std::int8_t yRestart = 0;
};

/// How many bytes the scanner had delivered by a scan line, and when.
struct ScanSpeedEntry {
    std::int32_t timeStamp = 0;
    std::int32_t byteCount = 0;
    std::int32_t lineIndex = 0; ///< The entry speaks of the lines before this one.
};

/// A point that the live measurement judged. Files hold none.
struct StarTestPoint {
    std::int32_t m_iValue = 0; ///< The scan line.
    bool m_bNotPassed = false;
    double m_dDeviation = 0.0;
};

/// Scan lines begin <= i < end.
struct LineRange {
    std::size_t begin = 0;
    std::size_t end = 0;

    std::size_t Count() const { return end - begin; }
    bool operator==(const LineRange&) const = default;
};

/// The lines from `first` to `last`, both included, as far as a sweep of `lineCount` lines has
/// them.
LineRange LinesBetween(std::int64_t first, std::int64_t last, std::size_t lineCount);

/// One sweep of the star test: the target scanned once, or the average of several such scans.
///
/// Arrays have one entry a scan line. What was measured is kept in the precision of the files,
/// single; formulas work in double precision and are rounded once.
struct StarTestSweep {
    std::int32_t LineCount() const { return m_iLineCount; }

    /// Gives the sweep `lineCount` lines with the values of the rows; lines for which there is no
    /// row are zero.
    void SetRows(std::span<const StarTestRow> rows, std::int32_t lineCount);
    /// A row as a file holds it. The speed entry is zero when the sweep has no speed table.
    StarTestRow Row(std::size_t line) const;

    /// The evaluation ranges: the lines that a figure of X, Y or the wide line is about. X and Y
    /// include their end, the wide line does not.
    LineRange XRange() const;
    LineRange YRange() const;
    LineRange WideLineRange() const;

    /// Works out which of the points have passed; a sweep without points has.
    void JudgePoints();
    /// The deviation that is shown beside the application factor: of the entry at the factor's
    /// count behind ten times the points. 0 when there is no such entry.
    double FactorDeviation() const;

    // Settings of the sweep; the names with '_' are those of the file.
    bool m_bColour = false;
    std::int32_t m_iLineCount = 0;
    std::int32_t m_iScanSpeed = 0;
    double m_dScanWidth = 0.0;
    std::int32_t m_iResolution = 0; ///< Lines an inch.
    std::int32_t m_iXVib_Start = 0;
    std::int32_t m_iXVib_End = 0;
    std::int32_t m_iYVib_Start = 0;
    std::int32_t m_iYVib_End = 0;
    std::int32_t m_iWideLine_Start = 0;
    std::int32_t m_iWideLine_End = 0;
    std::int32_t m_iScanSpeedIndex = 0; ///< Entries of the speed table that count.
    std::int32_t m_iScanSpeedWidth = 0;
    std::int32_t m_iScanSpeedBytePerPix = 0;
    bool m_bAvgResult = false; ///< The average of several sweeps.

    // What was measured.
    std::vector<float> m_XPosition;
    std::vector<float> m_YPosition;
    std::vector<std::int32_t> m_YPositionColumn;
    std::vector<float> m_WideLineRaw;
    std::vector<ScanSpeedEntry> m_SpeedTable;
    std::vector<std::int8_t> m_XRestart;
    std::vector<std::int8_t> m_YRestart;

    // What is worked out of it: the curves.
    std::vector<float> m_XVibration;
    std::vector<float> m_YVibration;
    std::vector<float> m_XVibrationAverage;
    std::vector<float> m_YVibrationAverage;
    std::vector<float> m_ScanSpeedCurve; ///< Of an average record: the standard deviation.
    std::vector<float> m_WideLine;
    std::vector<float> m_WideLineUnsmoothed;
    std::vector<float> m_XLineWidth; ///< As measured at first, then about their mean.
    std::vector<float> m_YLineWidth;

    // What only the live measurement works out.
    double m_dApplicationFactor = 0.0; ///< 0 when there is none.
    std::int32_t m_iApplicationFactorCount = 0;
    /// The points; of an average record, behind ten times as many entries, their standard
    /// deviations.
    std::vector<StarTestPoint> m_Points;
    std::int32_t m_iPointCount = 0;
    bool m_bChecked = false;
    bool m_bAllPointsPassed = false;
    bool m_bShowSymbol = false;
};

} // namespace vireo
