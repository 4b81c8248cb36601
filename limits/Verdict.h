#pragma once

#include "limits/LimitsFile.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vireo {

/// A list, of which only the number of its elements counts.
struct ListLength {
    std::int64_t count = 0;
    bool operator==(const ListLength&) const = default;
};

/// The value of a figure. Without one the figure is missing.
using FigureValue =
    std::variant<std::monostate, bool, std::int64_t, double, std::string, ListLength>;

/// Whether a value is within a limit. A missing one never is.
bool IsWithin(const Limit& limit, const FigureValue& value);

/// "4.5", "true", a text as it is, "7 elements", "missing".
std::string ValueText(const FigureValue& value);

/// A figure that is not within its limit.
struct FailedLimit {
    std::string name; ///< With the number of the element: "sweeps[3].curves.x_vibration.rms".
    FigureValue value;
    std::string limit; ///< "<= 4.5"
    int line = 0;      ///< Of the limits file, counted from 1.
};

/// What came of a file's figures under its limits.
struct Verdict {
    enum class Outcome { Pass, Fail, NoLimits };
    /// Of more failures only the number is kept.
    static constexpr std::size_t kMostFailed = 1000;

    /// Figures compared. Without any there are no limits that the file could have passed.
    std::size_t checked = 0;
    std::size_t failedCount = 0;
    std::vector<FailedLimit> failed; ///< The first of them, in the limits' order.

    Outcome Result() const;
    /// Counts a figure in, unless it is missing and need not be there.
    void Add(const Limit& limit, const std::string& name, FigureValue value);
};

/// "pass", "fail", "no limits".
std::string_view OutcomeName(Verdict::Outcome outcome);

/// What people read: "Pass", "Fail: 2 of 14".
std::string VerdictText(const Verdict& verdict);
/// A line a failed figure: "averages.red is 5, limit <= 4.5 (line 3)". At most `most` of them and,
/// when there are more, how many.
std::string FailureText(const Verdict& verdict, std::size_t most);

} // namespace vireo
