#pragma once

#include <cstdint>

namespace vireo {

/// Neighbouring rows of a picture, 0-based: from `first` to the one before `end`.
struct RowRange {
    std::int64_t first = 0;
    std::int64_t end = 0;

    bool operator==(const RowRange&) const = default;
};

} // namespace vireo
