#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace vireo {

/// The whole numbers that an option takes, both ends included.
struct NumberRange {
    std::int64_t lowest = 0;
    std::int64_t highest = std::numeric_limits<std::int64_t>::max();
};

/// The number of a text of decimal digits only, if it lies in the range.
std::optional<std::int64_t> ParseWholeNumber(std::string_view text, const NumberRange& range);

} // namespace vireo
