#include "viewers/oscilloscope/LineAnimation.h"

#include <algorithm>

namespace vireo {

void LineAnimation::Restart(std::int64_t lineCount)
{
    m_lineCount = std::max<std::int64_t>(lineCount, 1);
    m_currentLine = 0;
    m_bHeld = false;
}

void LineAnimation::Step(std::int64_t lines)
{
    // A line count is never above a file's length, so the sum of two line numbers cannot overflow.
    const std::int64_t moved = m_currentLine + lines % m_lineCount;
    m_currentLine = (moved % m_lineCount + m_lineCount) % m_lineCount;
}

bool LineAnimation::SetPause(int milliseconds)
{
    if (milliseconds < kShortestPauseMs || milliseconds > kLongestPauseMs)
        return false;
    m_iPauseMs = milliseconds;
    return true;
}

} // namespace vireo
