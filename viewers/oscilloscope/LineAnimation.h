#pragma once

#include <cstdint>

namespace vireo {

/// Which line of a file of many lines is shown, and how long until the next. It keeps no clock: the
/// dialog's timer calls Advance.
class LineAnimation {
public:
    static constexpr int kShortestPauseMs = 100;
    static constexpr int kLongestPauseMs = 10000;

    /// Begins with line 0 of a file; the pause between lines stays.
    void Restart(std::int64_t lineCount);

    std::int64_t LineCount() const { return m_lineCount; }
    std::int64_t CurrentLine() const { return m_currentLine; } ///< 0-based.
    int PauseMs() const { return m_iPauseMs; }

    /// Whether there is anything to step through.
    bool HasSeveralLines() const { return m_lineCount > 1; }
    /// Whether lines are to follow each other by themselves.
    bool IsRunning() const { return HasSeveralLines() && !m_bHeld; }
    /// Stops on the line shown, or goes on from it.
    void Hold(bool hold) { m_bHeld = hold; }

    /// The next line; line 0 follows the last.
    void Advance() { Step(1); }
    /// So many lines on, or back when negative, around both ends.
    void Step(std::int64_t lines);

    /// Takes a new pause; outside the range nothing changes and the result is false.
    bool SetPause(int milliseconds);

private:
    std::int64_t m_lineCount = 1;
    std::int64_t m_currentLine = 0;
    int m_iPauseMs = kShortestPauseMs;
    bool m_bHeld = false;
};

} // namespace vireo
