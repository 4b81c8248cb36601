#include "viewers/startest/StarTestAnalysis.h"

#include <algorithm>
#include <numeric>

namespace vireo {

void ComputeScanSpeed(std::span<const ScanSpeedEntry> table, std::span<float> speed)
{
    constexpr double kSpeedUnit = 5000.0;
    std::size_t line = 0;
    for (std::size_t k = 0; k < table.size() && line < speed.size(); ++k) {
        double value = 0.0;
        if (k > 0 && table[k].timeStamp != table[k - 1].timeStamp) {
            const double time = static_cast<double>(table[k].timeStamp) - table[k - 1].timeStamp;
            value = table[k].byteCount / time / kSpeedUnit;
        }
        const auto end = static_cast<std::size_t>(std::max<std::int32_t>(table[k].lineIndex, 0));
        for (; line < std::min(end, speed.size()); ++line)
            speed[line] = static_cast<float>(value);
    }
}

void ComputeWideLine(std::span<const float> raw, std::int32_t start, std::int32_t end,
    std::span<float> smoothed, std::span<float> unsmoothed)
{
    const auto lineCount = static_cast<std::int64_t>(raw.size());
    const std::int64_t first = std::max<std::int64_t>(start, 0);
    const std::int64_t behind = std::min<std::int64_t>(end, lineCount);
    const std::int64_t middle = (first + behind) / 2;
    if (middle < 1 || middle >= lineCount)
        return;
    const LineRange lines = LinesBetween(first, behind - 1, raw.size());
    const float level = raw[static_cast<std::size_t>(middle)];
    for (std::size_t i = lines.begin; i < lines.end; ++i)
        smoothed[i] = unsmoothed[i] = raw[i] - level;
    SmoothByMovingMean(smoothed.subspan(lines.begin, lines.Count()));
}

void MovingMean::Push(float value)
{
    constexpr float kLargest = 1e9F;
    if (value > kLargest || value < -kLargest)
        return;
    if (!m_isFilled) {
        m_slots.fill(value);
        for (std::size_t block = 0; block < m_sums.size(); ++block)
            SumUpBlock(block);
    }
    m_isFilled = true;
    m_slots[m_oldest] = value;
    SumUpBlock(m_oldest / kBlock);
    m_oldest = (m_oldest + 1) % kSlots;
}

/// A block's slots are added up each time: in a running sum the rounding of one huge value, or one
/// that is no number, would stay for ever.
void MovingMean::SumUpBlock(std::size_t block)
{
    const auto slots = std::span(m_slots).subspan(block * kBlock, kBlock);
    m_sums[block] = std::accumulate(slots.begin(), slots.end(), 0.0);
}

double MovingMean::Mean() const
{
    return std::accumulate(m_sums.begin(), m_sums.end(), 0.0) / kSlots;
}

void SmoothByMovingMean(std::span<float> values)
{
    if (values.empty())
        return;
    MovingMean mean;
    const std::size_t last = values.size() - 1;
    for (std::size_t i = 0; i < MovingMean::kLookAhead; ++i)
        mean.Push(values[std::min(i, last)]);
    for (std::size_t i = 0; i < values.size(); ++i) {
        // Read before it is overwritten.
        mean.Push(values[std::min(i + MovingMean::kLookAhead, last)]);
        values[i] = static_cast<float>(mean.Mean());
    }
}

namespace {

double MeanOf(std::span<const float> values)
{
    return values.empty()
        ? 0.0
        : std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

} // namespace

void CentreLineWidth(std::span<float> width, std::int32_t start, std::int32_t end)
{
    const LineRange lines = LinesBetween(start, end, width.size());
    const std::span<float> inRange = width.subspan(lines.begin, lines.Count());
    const double mean = MeanOf(inRange);
    for (float& value : inRange)
        value = static_cast<float>(value - mean);
}

void ComputeVibration(std::span<const float> position, std::span<const std::int8_t> restart,
    std::int32_t start, std::int32_t end, std::span<float> vibration)
{
    if (start < 0 || static_cast<std::size_t>(start) >= position.size())
        return;
    const LineRange lines = LinesBetween(start, end, position.size());
    std::size_t reference = lines.begin;
    for (std::size_t i = lines.begin; i < lines.end; ++i) {
        if (restart[i] != 0)
            reference = i;
        const double moved = static_cast<double>(position[i]) - position[reference];
        vibration[i] = static_cast<float>(moved + static_cast<double>(i - reference));
    }
}

namespace {

/// The lines between the first and the last that count for the compensation, both included. A curve
/// is zero outside its evaluation range.
LineRange CompensatedLines(std::span<const float> vibration)
{
    constexpr std::size_t kEdge = 10;
    if (vibration.size() <= 2 * kEdge)
        return {};
    LineRange lines{kEdge, vibration.size() - kEdge + 1};
    while (lines.begin < lines.end && vibration[lines.begin] == 0.0F)
        ++lines.begin;
    while (lines.begin < lines.end && vibration[lines.end - 1] == 0.0F)
        --lines.end;
    return lines;
}

void CompensateSegment(
    std::span<const float> wideLine, LineRange segment, std::span<float> vibration)
{
    const double level = wideLine[(segment.begin + segment.end) / 2];
    for (std::size_t i = segment.begin; i < segment.end; ++i)
        vibration[i] = static_cast<float>(vibration[i] - (wideLine[i] - level));
}

} // namespace

void CompensateForWideLine(std::span<const float> wideLine, std::span<const std::int8_t> restart,
    std::span<float> vibration)
{
    const LineRange lines = CompensatedLines(vibration);
    std::size_t before = lines.end;
    for (std::size_t i = lines.begin; i < lines.end; ++i) {
        if (restart[i] == 0)
            continue;
        if (before < i)
            CompensateSegment(wideLine, {before, i}, vibration);
        before = i;
    }
}

LineFit FitLine(std::span<const float> values, std::size_t first)
{
    const auto count = static_cast<double>(values.size());
    const double centre = static_cast<double>(first) + (count - 1.0) / 2.0;
    const double mean = MeanOf(values);
    // About the centre the sums stay small, and so does their rounding.
    double products = 0.0;
    double distance = static_cast<double>(first) - centre;
    for (const float value : values) {
        products += distance * (value - mean);
        distance += 1.0;
    }
    // Sum of the squared distances of 1, 2, ... count from their centre.
    const double squares = count * (count * count - 1.0) / 12.0;
    const double slope = squares > 0.0 ? products / squares : 0.0;
    return {slope, mean - slope * centre};
}

void DetrendVibration(std::span<const float> vibration, std::span<const std::int8_t> restart,
    std::span<const float> speed, LineRange lines, std::span<float> average)
{
    const auto motorStops = [speed](std::size_t i) {
        constexpr double kStop = 10.0;
        return i > 0 && speed[i - 1] / kStop > speed[i];
    };
    std::size_t begin = lines.begin;
    for (std::size_t i = lines.begin; i <= lines.end; ++i) {
        const bool isCut = i == lines.end || restart[i] != 0 || motorStops(i);
        if (!isCut)
            continue;
        const LineFit fit = FitLine(vibration.subspan(begin, i - begin), begin);
        for (; begin < i; ++begin)
            average[begin] =
                static_cast<float>(vibration[begin] - fit.At(static_cast<double>(begin)));
    }
}

namespace {

/// The average is worked out only where the range begins behind the first line and ends before the
/// last of the sweep.
bool HasAverage(std::int32_t start, std::int32_t end, std::int32_t lineCount)
{
    return start > 0 && end < lineCount;
}

} // namespace

void AnalyseSweep(StarTestSweep& sweep)
{
    const std::size_t entries =
        LinesBetween(0, std::int64_t{sweep.m_iScanSpeedIndex} - 1, sweep.m_SpeedTable.size()).end;
    ComputeScanSpeed(std::span(sweep.m_SpeedTable).first(entries), sweep.m_ScanSpeedCurve);
    ComputeWideLine(sweep.m_WideLineRaw, sweep.m_iWideLine_Start, sweep.m_iWideLine_End,
        sweep.m_WideLine, sweep.m_WideLineUnsmoothed);
    CentreLineWidth(sweep.m_XLineWidth, sweep.m_iXVib_Start, sweep.m_iXVib_End);
    CentreLineWidth(sweep.m_YLineWidth, sweep.m_iYVib_Start, sweep.m_iYVib_End);
    ComputeVibration(sweep.m_XPosition, sweep.m_XRestart, sweep.m_iXVib_Start, sweep.m_iXVib_End,
        sweep.m_XVibration);
    ComputeVibration(sweep.m_YPosition, sweep.m_YRestart, sweep.m_iYVib_Start, sweep.m_iYVib_End,
        sweep.m_YVibration);
    CompensateForWideLine(sweep.m_WideLine, sweep.m_XRestart, sweep.m_XVibration);
    CompensateForWideLine(sweep.m_WideLine, sweep.m_YRestart, sweep.m_YVibration);
    // The X range without its end and the Y range with it: they have always differed by one.
    if (HasAverage(sweep.m_iXVib_Start, sweep.m_iXVib_End, sweep.m_iLineCount))
        DetrendVibration(sweep.m_XVibration, sweep.m_XRestart, sweep.m_ScanSpeedCurve,
            LinesBetween(sweep.m_iXVib_Start, std::int64_t{sweep.m_iXVib_End} - 1,
                sweep.m_XVibration.size()),
            sweep.m_XVibrationAverage);
    if (HasAverage(sweep.m_iYVib_Start, sweep.m_iYVib_End, sweep.m_iLineCount))
        DetrendVibration(sweep.m_YVibration, sweep.m_YRestart, sweep.m_ScanSpeedCurve,
            sweep.YRange(), sweep.m_YVibrationAverage);
    sweep.JudgePoints();
}

} // namespace vireo
