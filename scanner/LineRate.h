#pragma once

#include <chrono>

namespace vireo {

/// How many of something come in a second, measured over at least half a second.
class LineRate {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// One has come at this time.
    void Count(Time now);
    /// The rate of the last whole stretch; 0 before there is one.
    double PerSecond() const { return m_perSecond; }
    void Restart() { *this = {}; }

private:
    int m_count = -1; ///< The first begins the stretch and is not counted.
    Time m_since;
    double m_perSecond = 0.0;
};

} // namespace vireo
