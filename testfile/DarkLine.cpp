#include "testfile/DarkLine.h"

#include <algorithm>
#include <vector>

namespace vireo {

namespace {

double Median(std::span<const double> values)
{
    std::vector<double> sorted(values.begin(), values.end());
    const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
    std::nth_element(sorted.begin(), middle, sorted.end());
    return *middle;
}

/// The centre of mass of what lies below a level, around a pixel that does.
double CentreBelow(std::span<const double> profile, double level, std::size_t inside)
{
    std::size_t first = inside;
    while (first > 0 && profile[first - 1] < level)
        --first;
    double mass = 0.0;
    double moment = 0.0;
    for (std::size_t i = first; i < profile.size() && profile[i] < level; ++i) {
        const double weight = level - profile[i];
        mass += weight;
        moment += weight * static_cast<double>(i);
    }
    return moment / mass;
}

} // namespace

std::optional<DarkLine> FindDarkLine(std::span<const double> profile)
{
    constexpr double kLeastDepth = 16.0;
    if (profile.empty())
        return std::nullopt;
    const double background = Median(profile);
    const double greatestDepth = background - *std::ranges::min_element(profile);
    if (greatestDepth < kLeastDepth)
        return std::nullopt;
    const double half = background - greatestDepth / 2.0;
    const auto isDark = [half](double value) { return value <= half; };
    const auto first = std::ranges::find_if(profile, isDark);
    const auto end = std::find_if_not(first, profile.end(), isDark);
    const auto darkest = std::min_element(first, end);
    const auto place = static_cast<std::size_t>(darkest - profile.begin());
    const double depth = background - *darkest;
    return DarkLine{place, CentreBelow(profile, background - depth / 8.0, place)};
}

} // namespace vireo
