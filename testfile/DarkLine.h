#pragma once

#include <cstddef>
#include <optional>
#include <span>

namespace vireo {

/// A dark line where a profile, brightness by pixel, crosses it.
struct DarkLine {
    std::size_t darkest; ///< The line's darkest pixel, the first if there are several.
    /// To a fraction of a pixel; the middle of pixel i is i. The brightness's centre of mass below
    /// a level a quarter of the way from the background to the line: with the background B, the
    /// median of the profile, the pixels' values v and the depth D = B - the lowest v of the line,
    ///
    ///     centre = sum(i * w) / sum(w),   w = max(0, (B - v) - D / 8)
    ///
    /// over the pixels next to each other around the darkest one whose w is not 0. Noise of less
    /// than an eighth of the line's depth does not move the ends; a higher level would cut more off
    /// one side of a narrow line than off the other.
    double centre;
};

/// The first dark line in a profile: the first stretch that lies at least half as far below the
/// background as the darkest pixel of all. Nothing when the darkest pixel is less than 16 levels of
/// 255 below the background. The background must be more than half of the profile.
std::optional<DarkLine> FindDarkLine(std::span<const double> profile);

} // namespace vireo
