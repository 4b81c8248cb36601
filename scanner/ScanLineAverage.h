#pragma once

#include "scanner/ScannerDevice.h"

#include <cstdint>
#include <deque>

namespace vireo {

/// The average of the last lines, each pixel rounded.
class ScanLineAverage {
public:
    static constexpr int kMostLines = 256;

    /// How many lines are averaged (1 to kMostLines); the lines so far are forgotten.
    void SetLines(int lines);
    int Lines() const { return m_lines; }
    void Restart();

    /// Takes a line and gives the average of those that there are. A line of another length than
    /// those before begins anew.
    void Add(const ScanLine& line, ScanLine& average);
    /// How many lines the last average is made of.
    int Used() const { return static_cast<int>(m_kept.size()); }

private:
    bool Fits(const ScanLine& line) const;

    int m_lines = 1;
    std::deque<ScanLine> m_kept;
    std::array<std::vector<std::uint32_t>, ScannerIdentity::kMostPlanes> m_sums;
};

/// The lowest and the highest value that each pixel has had.
struct ScanLineHold {
    ScanLine lowest;
    ScanLine highest;

    void Restart() { *this = {}; }
    /// A line of another length than those before begins anew.
    void Add(const ScanLine& line);
};

} // namespace vireo
