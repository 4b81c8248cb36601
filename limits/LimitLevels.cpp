#include "limits/LimitLevels.h"

#include "limits/FigureNames.h"
#include "limits/Verdict.h"

#include <algorithm>

namespace vireo {

namespace {

bool IsOfElement(const FigurePath& figure, std::optional<std::int64_t> element)
{
    return std::ranges::all_of(figure.steps, [element](const FigureStep& step) {
        return step.IsMember() || step.index == FigureStep::kEveryElement || !element
            || step.index == *element;
    });
}

/// "max <= 242", or of a limit beyond which the value itself lies "max < 242".
std::string LabelOf(const Limit& limit, std::string_view relation, double value)
{
    const bool isOpen = limit.relation == Relation::Below || limit.relation == Relation::Above;
    const std::string sign(limit.relation == Relation::Equal ? "="
            : isOpen                                         ? relation.substr(0, 1)
                                                             : relation);
    return limit.figure.steps.back().member + ' ' + sign + ' ' + ValueText(value);
}

} // namespace

std::vector<LimitLevel> LevelsOf(
    std::span<const Limit> limits, std::string_view pattern, std::optional<std::int64_t> element)
{
    std::vector<LimitLevel> levels;
    for (const Limit& limit : limits) {
        if (limit.isOfCount || !MatchesFigure(pattern, limit.figure)
            || !IsOfElement(limit.figure, element))
            continue;
        const auto highest = limit.Highest();
        const auto lowest = limit.Lowest();
        if (highest)
            levels.push_back({*highest, LabelOf(limit, "<=", *highest)});
        if (lowest && lowest != highest)
            levels.push_back({*lowest, LabelOf(limit, ">=", *lowest), true});
    }
    return levels;
}

} // namespace vireo
