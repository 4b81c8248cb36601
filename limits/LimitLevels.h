#pragma once

#include "limits/LimitsFile.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

/// A limit at a value, as a plot draws it.
struct LimitLevel {
    double value = 0.0;
    std::string label;     ///< "max <= 242"
    bool isLowest = false; ///< Values within the limit lie above it.

    bool operator==(const LimitLevel&) const = default;
};

/// The highest and lowest values that are within the limits of figures of a name, which is written
/// as in FigureRow. Of elements of lists, those of every element and of number `element` count.
std::vector<LimitLevel> LevelsOf(std::span<const Limit> limits, std::string_view pattern,
    std::optional<std::int64_t> element = std::nullopt);

} // namespace vireo
