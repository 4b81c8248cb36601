#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

/// One step into the figures of a file: to a member of an object, or to an element of an array.
struct FigureStep {
    static constexpr std::int64_t kMember = -1;
    static constexpr std::int64_t kEveryElement = -2;

    std::string member;           ///< Its name, in UTF-8, when `index` is kMember.
    std::int64_t index = kMember; ///< Of the element, counted from 0; or one of the above.

    bool IsMember() const { return index == kMember; }
    bool operator==(const FigureStep&) const = default;
};

/// The name of a figure, such as `sweeps[*].curves.x_vibration.rms`: where it stands in the object
/// that the analysis of a file gives. Never empty once parsed; its first step is a member.
struct FigurePath {
    static constexpr std::size_t kMostSteps = 16;
    static constexpr std::int64_t kHighestIndex = 1'000'000'000;

    std::vector<FigureStep> steps;

    /// Takes a name from the beginning of `text`, as much as belongs to it. Members consist of
    /// letters, digits and '_', or stand in double quotes. Nothing, and `text` as it was, when no
    /// name stands there or an index is out of range.
    static std::optional<FigurePath> Take(std::string_view& text);

    std::string Text() const;
    bool operator==(const FigurePath&) const = default;
};

/// Appends a step to the text of a name, as FigurePath::Text writes it.
void AppendStep(std::string& text, const FigureStep& step);

} // namespace vireo
