#pragma once

#include "viewers/startest/StarTestData.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace vireo {

/// A data line of a star-test file: twelve numbers as "%d %f %f %d %f %d %d %d %f %f %d %d" reads
/// them, of which the first, the line's number, does not count. What is missing is 0.
StarTestRow ParseStarTestRow(std::string_view line);

/// Takes the lines of a star-test file one by one and makes the measurement of them.
class StarTestReader {
public:
    /// `fileBytes` is the length of the file: it limits what the file can announce.
    StarTestReader(StarTestData& data, std::uint64_t fileBytes);

    /// False when nothing more can come of the file: its sweeps are complete, or its header is
    /// longer than any.
    bool TakeLine(std::string_view line);
    /// Closes a sweep whose end is missing, and works out the averages.
    void Finish();

    bool HasTag() const { return m_hasTag; }
    bool HasSweeps() const { return m_hasSweeps; }

private:
    void TakeHeaderLine(std::string_view line);
    void TakeKeyLine(std::string_view line);
    void TakeDataLine(std::string_view line);
    void CloseSweep();
    std::size_t MostSweeps() const;
    bool WantsMore() const;
    void DropAverages();

    StarTestData& m_data;
    std::int64_t m_linesLeft; ///< That the file can still justify.
    std::size_t m_headerBytes = 0;
    std::int32_t m_announcedSweeps = 0;
    bool m_hasTag = false;
    bool m_isInData = false;
    bool m_hasSweeps = false;
    bool m_isOpen = false; ///< The current sweep has begun and not ended.
    StarTestSweep m_current;
    std::int64_t m_currentLines = 0;
    std::vector<StarTestRow> m_rows; ///< Of the current sweep.
};

} // namespace vireo
