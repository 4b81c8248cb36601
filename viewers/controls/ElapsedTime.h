#pragma once

#include <cstdint>
#include <string>

namespace vireo {

/// A stretch of time as a clock shows it.
struct ElapsedTime {
    std::int64_t hours = 0;
    int minutes = 0; ///< 0 to 59.
    int seconds = 0; ///< 0 to 59.

    /// Rounds to whole seconds, a half up; a stretch below zero counts as none.
    static ElapsedTime FromMilliseconds(std::int64_t milliseconds);

    /// Hours, minutes and seconds such as "0:04:09".
    std::string Text() const;

    bool operator==(const ElapsedTime&) const = default;
};

} // namespace vireo
