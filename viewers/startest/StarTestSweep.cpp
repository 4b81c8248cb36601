#include "viewers/startest/StarTestSweep.h"

#include <algorithm>

namespace vireo {

LineRange LinesBetween(std::int64_t first, std::int64_t last, std::size_t lineCount)
{
    const auto count = static_cast<std::int64_t>(lineCount);
    const std::int64_t begin = std::clamp<std::int64_t>(first, 0, count);
    const std::int64_t end = std::clamp(last + 1, begin, count);
    return {static_cast<std::size_t>(begin), static_cast<std::size_t>(end)};
}

LineRange StarTestSweep::XRange() const
{
    return LinesBetween(m_iXVib_Start, m_iXVib_End, m_XVibration.size());
}

LineRange StarTestSweep::YRange() const
{
    return LinesBetween(m_iYVib_Start, m_iYVib_End, m_YVibration.size());
}

LineRange StarTestSweep::WideLineRange() const
{
    return LinesBetween(m_iWideLine_Start, std::int64_t{m_iWideLine_End} - 1, m_WideLine.size());
}

namespace {

/// Makes one array of `lineCount` entries of one column of the rows.
template <typename Value, typename Column>
void FillColumn(std::vector<Value>& values, std::span<const StarTestRow> rows,
    std::size_t lineCount, Column column)
{
    values.assign(lineCount, Value{});
    std::transform(rows.begin(), rows.end(), values.begin(), column);
}

} // namespace

void StarTestSweep::SetRows(std::span<const StarTestRow> rows, std::int32_t lineCount)
{
    m_iLineCount = std::max(lineCount, 0);
    const auto lines = static_cast<std::size_t>(m_iLineCount);
    rows = rows.first(std::min(rows.size(), lines));
    FillColumn(m_XPosition, rows, lines, [](const StarTestRow& row) { return row.xPosition; });
    FillColumn(m_YPosition, rows, lines, [](const StarTestRow& row) { return row.yPosition; });
    FillColumn(
        m_YPositionColumn, rows, lines, [](const StarTestRow& row) { return row.yPositionColumn; });
    FillColumn(m_WideLineRaw, rows, lines, [](const StarTestRow& row) { return row.wideLine; });
    FillColumn(m_SpeedTable, rows, lines, [](const StarTestRow& row) {
        return ScanSpeedEntry{row.timeStamp, row.byteCount, row.lineIndex};
    });
    FillColumn(m_XLineWidth, rows, lines, [](const StarTestRow& row) { return row.xLineWidth; });
    FillColumn(m_YLineWidth, rows, lines, [](const StarTestRow& row) { return row.yLineWidth; });
    FillColumn(m_XRestart, rows, lines, [](const StarTestRow& row) { return row.xRestart; });
    FillColumn(m_YRestart, rows, lines, [](const StarTestRow& row) { return row.yRestart; });
    for (std::vector<float>* const curve : {&m_XVibration, &m_YVibration, &m_XVibrationAverage,
             &m_YVibrationAverage, &m_ScanSpeedCurve, &m_WideLine, &m_WideLineUnsmoothed})
        curve->assign(lines, 0.0F);
}

StarTestRow StarTestSweep::Row(std::size_t line) const
{
    const ScanSpeedEntry speed = line < m_SpeedTable.size() ? m_SpeedTable[line] : ScanSpeedEntry{};
    return {m_XPosition[line], m_YPosition[line], m_YPositionColumn[line], m_WideLineRaw[line],
        speed.timeStamp, speed.byteCount, speed.lineIndex, m_XLineWidth[line], m_YLineWidth[line],
        m_XRestart[line], m_YRestart[line]};
}

void StarTestSweep::JudgePoints()
{
    m_bAllPointsPassed = std::ranges::none_of(m_Points, &StarTestPoint::m_bNotPassed);
}

double StarTestSweep::FactorDeviation() const
{
    constexpr std::int64_t kPointsBefore = 10;
    const std::int64_t index = m_iApplicationFactorCount + kPointsBefore * m_iPointCount;
    return index >= 0 && index < std::ssize(m_Points)
        ? m_Points[static_cast<std::size_t>(index)].m_dDeviation
        : 0.0;
}

} // namespace vireo
