#include "viewers/controls/AxisTicks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace vireo {

namespace {

/// A step of 1, 2 or 5 times a power of ten. Kept in two numbers, so that a multiple such as 3 x
/// 0.1 is the double nearest to 0.3.
struct Step {
    int digit = 1;
    int exponent = 0;

    double Multiple(double count) const
    {
        // The widest steps overflow, and 0 times infinity would be no number.
        if (count == 0.0)
            return 0.0;
        const double units = count * digit;
        return exponent < 0 ? units / std::pow(10.0, -exponent) : units * std::pow(10.0, exponent);
    }
    double Width() const { return Multiple(1.0); }
    int MinorParts() const { return digit == 2 ? 4 : 5; }
    Step Wider() const
    {
        if (digit == 5)
            return {1, exponent + 1};
        return {digit == 1 ? 2 : 5, exponent};
    }
    Step Finer() const
    {
        if (digit == 1)
            return {5, exponent - 1};
        return {digit == 5 ? 2 : 1, exponent};
    }
};

/// Which multiples of a step an axis shows: first <= i <= last.
struct Ticks {
    Step step;
    double first = 0.0;
    double last = -1.0;

    double Count() const { return last - first + 1.0; }
};

Ticks MultiplesWithin(double low, double high, Step step)
{
    // A limit that is a multiple but for its last bits is one.
    constexpr double kSlack = 1e-9;
    const double width = step.Width();
    return {step, std::ceil(low / width - kSlack), std::floor(high / width + kSlack)};
}

/// Below this share of the values themselves, neighbouring multiples are no longer told apart.
constexpr double kFinestShare = 1e-12;

/// Narrower ranges have no power of ten left for their steps.
constexpr double kNarrowest = 1e-280;

Ticks FindTicks(double low, double high, int most)
{
    const double largest = std::max(std::abs(low), std::abs(high));
    // Each limit is divided first: the difference of two huge ones may be no number any more.
    const double atLeast = std::max(high / most - low / most, largest * kFinestShare);
    // From a step that may be ten times too fine on; two or three turns find the one that fits.
    Ticks ticks =
        MultiplesWithin(low, high, Step{1, static_cast<int>(std::floor(std::log10(atLeast)))});
    while (ticks.Count() > most)
        ticks = MultiplesWithin(low, high, ticks.step.Wider());
    if (ticks.Count() >= 1.0)
        return ticks;
    // The step leaps over the whole range: of the finer ones, show the multiple in the middle.
    while (ticks.Count() < 1.0 && ticks.step.Width() > largest * kFinestShare)
        ticks = MultiplesWithin(low, high, ticks.step.Finer());
    if (ticks.Count() >= 1.0)
        ticks.first = ticks.last = ticks.first + std::floor((ticks.Count() - 1.0) / 2.0);
    return ticks;
}

template <typename... Precision>
std::string NumberText(double value, Precision... precision)
{
    std::array<char, 400> text; // Longer than any double in fixed notation with few decimals.
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, precision...);
    return {text.data(), end.ptr};
}

std::string TickText(double value, const Step& step)
{
    // Beyond these, a row of zeros is harder to read than a power of ten.
    constexpr int kMostDecimals = 6;
    constexpr double kLargestFixed = 1e10;
    const int decimals = std::max(-step.exponent, 0);
    if (decimals <= kMostDecimals && std::abs(value) < kLargestFixed)
        return NumberText(value, std::chars_format::fixed, decimals);
    const double magnitude = value == 0.0 ? 0.0 : std::floor(std::log10(std::abs(value)));
    const int digits = std::clamp(static_cast<int>(magnitude) - step.exponent + 1, 1, 17);
    return NumberText(value, std::chars_format::general, digits);
}

bool IsNarrow(double low, double high)
{
    const double largest = std::max(std::abs(low), std::abs(high));
    return high / 2.0 - low / 2.0 <= std::max(largest * kFinestShare, kNarrowest);
}

} // namespace

std::vector<AxisTick> AxisTicks(double low, double high, int most)
{
    if (!std::isfinite(low) || !std::isfinite(high) || most < 1)
        return {};
    if (low > high)
        std::swap(low, high);
    if (IsNarrow(low, high))
        return {{low, NumberText(low)}};
    const Ticks ticks = FindTicks(low, high, most);
    std::vector<AxisTick> result;
    for (double index = ticks.first; index <= ticks.last; ++index) {
        const double value = ticks.step.Multiple(index);
        result.push_back({value, TickText(value, ticks.step)});
    }
    return result;
}

std::vector<double> MinorAxisTicks(double low, double high, int most)
{
    if (!std::isfinite(low) || !std::isfinite(high) || most < 1)
        return {};
    if (low > high)
        std::swap(low, high);
    if (IsNarrow(low, high))
        return {};
    const Step step = FindTicks(low, high, most).step;
    const int parts = step.MinorParts();
    // A fifth of 1 or 5 and a quarter of 2 are steps of the same kind.
    Step part{10 * step.digit / parts, step.exponent - 1};
    if (part.digit == 10)
        part = {1, step.exponent};
    std::vector<double> result;
    const Ticks ticks = MultiplesWithin(low, high, part);
    // `most` is the caller's; a limit on what it can make of one range costs nothing.
    constexpr double kMostMinorTicks = 100000.0;
    if (ticks.Count() > kMostMinorTicks)
        return result;
    for (double index = ticks.first; index <= ticks.last; ++index) {
        if (std::fmod(index, parts) != 0.0)
            result.push_back(part.Multiple(index));
    }
    return result;
}

} // namespace vireo
