#pragma once

#include "viewers/startest/StarTestSweep.h"

#include <array>
#include <cstdint>
#include <span>

namespace vireo {

/// The formulas of the star test, each by itself. Arrays have one entry a scan line; lengths of the
/// arrays of one call are the same. Ranges of lines may lie anywhere: they are clipped.
///
/// How the test works: the target's near-vertical and near-horizontal lines run at 45 degrees, so
/// that from one scan line to the next the place where the scan meets them moves by one pixel.
/// Where the carriage is early or late, the place differs by as much: the difference over the scan
/// lines is the vibration curve. The wide line runs straight down the target; where it sways, the
/// target lies askew or was bent, which is no vibration and is taken out again.

/// Works out every curve of a measured sweep from what was measured.
void AnalyseSweep(StarTestSweep& sweep);

/// Speed at each line: bytes delivered since the entry before, over the time since then, / 5000.
/// Each entry speaks of the lines from the end of the entry before up to its own line index. The
/// first has no time before it, and equal time stamps give no speed: 0.
void ComputeScanSpeed(std::span<const ScanSpeedEntry> table, std::span<float> speed);

/// The wide line about its middle: where `start` <= i < `end`, the raw position minus that at
/// (start + end) / 2. The one copy stays as it is, the other is smoothed. Both are left alone when
/// the middle is line 0 or none of the lines.
void ComputeWideLine(std::span<const float> raw, std::int32_t start, std::int32_t end,
    std::span<float> smoothed, std::span<float> unsmoothed);

/// The mean of the last 81 values pushed. The first value counts as if it had been there all along.
class MovingMean {
public:
    static constexpr std::size_t kSlots = 81;
    static constexpr std::size_t kLookAhead = kSlots / 2;

    /// Values beyond +-1e9 are faults of the measurement and are left out.
    void Push(float value);
    double Mean() const;

private:
    static constexpr std::size_t kBlock = 9;
    static_assert(kSlots % kBlock == 0);

    void SumUpBlock(std::size_t block);

    std::array<double, kSlots> m_slots{};
    std::array<double, kSlots / kBlock> m_sums{}; ///< Of the slots of each block.
    std::size_t m_oldest = 0;
    bool m_isFilled = false;
};

/// Replaces each value by the mean of the 81 values about it, which leaves of the wide line the way
/// the target lies and takes away the noise of measuring it. Beyond its ends the line goes on with
/// its first and last value.
void SmoothByMovingMean(std::span<float> values);

/// Subtracts from the widths of the lines `start` to `end` their mean: what is left is how evenly a
/// thin line is drawn, whatever its width.
void CentreLineWidth(std::span<float> width, std::int32_t start, std::int32_t end);

/// The vibration over the lines `start` to `end`: by how much the position has moved since the last
/// restart, plus the number of lines since then; 0 on the undisturbed 45 degree line, whose
/// position falls by one a line. At a restart the next target line is followed from there on.
/// Nothing is done when `start` is none of the lines.
void ComputeVibration(std::span<const float> position, std::span<const std::int8_t> restart,
    std::int32_t start, std::int32_t end, std::span<float> vibration);

/// Takes the sway of the wide line out of a vibration curve: from one restart to the next, what the
/// wide line differs from its value in the middle of the two. What lies before the first and behind
/// the last restart stays. Ten lines at each end, and the zeros next to them, do not count.
void CompensateForWideLine(std::span<const float> wideLine, std::span<const std::int8_t> restart,
    std::span<float> vibration);

/// A straight line: slope x line number + offset.
struct LineFit {
    double slope = 0.0;
    double offset = 0.0;

    double At(double line) const { return slope * line + offset; }
};

/// The straight line with the least squares through values at the lines first, first + 1, ... One
/// value gives a level line through it, none the zero line.
LineFit FitLine(std::span<const float> values, std::size_t first);

/// The vibration without its trend, for the lines of a range: the range is cut where the position
/// restarts and where the motor stops (the speed falls below a tenth from one line to the next),
/// and from each piece its fitted straight line is subtracted.
void DetrendVibration(std::span<const float> vibration, std::span<const std::int8_t> restart,
    std::span<const float> speed, LineRange lines, std::span<float> average);

} // namespace vireo
