#pragma once

#include "limits/FigurePath.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

/// What must hold of a figure.
enum class Relation { AtMost, Below, AtLeast, Above, Equal, Between, Empty, NotEmpty };

/// A number as a limits file writes it.
struct LimitNumber {
    double value = 0.0;
    std::optional<std::int64_t> whole; ///< The same, where it is written without a fraction.
};

/// One limit: a line of a limits file.
struct Limit {
    FigurePath figure;
    bool isOptional = false; ///< Not heeded where the figure is missing.
    bool isOfCount = false;  ///< Of the number of elements of a list, not of the list.
    Relation relation = Relation::AtMost;
    LimitNumber number;              ///< Between: the lower one.
    LimitNumber upper;               ///< Between only; both ends are within the limit.
    std::optional<std::string> text; ///< Equal to this text, in UTF-8.
    std::optional<bool> flag;        ///< Equal to this truth value.
    std::string wording; ///< What stands behind the figure's name: "<= 4.5", "count <= 3".
    int line = 0;        ///< Counted from 1.

    /// The highest and the lowest number within the limit, where there is one.
    std::optional<double> Highest() const;
    std::optional<double> Lowest() const;
};

/// The limits of one kind of file.
struct LimitsSection {
    std::string kind;          ///< "light-profile"
    std::optional<int> family; ///< Of the scanner; nothing: of every one.
    std::vector<Limit> limits;
};

/// What is wrong with a limits file, in one sentence.
struct LimitsFault {
    std::string text;
    int line = 0; ///< Counted from 1; 0 when it is not in a line.

    /// "Line 12: There is no ..."
    std::string Text() const;
};

/// The limits of a test: which figures of files of which kind must lie where. docs/file-formats.md
/// describes the text that holds them.
class LimitsFile {
public:
    static constexpr std::size_t kMostBytes = std::size_t{1} << 20;
    static constexpr std::size_t kMostLimits = 10'000;

    /// Reads a file. After a fault there are no limits.
    std::optional<LimitsFault> Read(const std::filesystem::path& path);
    /// The same of its text, in UTF-8.
    std::optional<LimitsFault> Parse(std::string_view text);

    std::span<const LimitsSection> Sections() const { return m_sections; }

    /// The limits of a file of a kind from a scanner of a family, in their order. Those of the
    /// family take the place of general ones of the same figure. They point into this object.
    std::vector<const Limit*> LimitsOf(std::string_view kind, std::optional<int> family) const;

private:
    std::vector<LimitsSection> m_sections;
};

} // namespace vireo
