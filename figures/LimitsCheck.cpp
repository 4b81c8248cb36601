#include "figures/LimitsCheck.h"

#include "figures/HeaderJson.h"
#include "figures/Subject.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>
#include <variant>

namespace vireo {

bool FileVerdict::IsPassed() const
{
    return failure.empty() && verdict && verdict->Result() == Verdict::Outcome::Pass;
}

namespace {

FigureValue ValueOf(const Json& figure)
{
    constexpr auto kHighest = std::numeric_limits<std::int64_t>::max();
    if (figure.is_boolean())
        return figure.get<bool>();
    if (figure.is_number_unsigned() && figure.get<std::uint64_t>() > std::uint64_t{kHighest})
        return figure.get<double>();
    if (figure.is_number_integer())
        return figure.get<std::int64_t>();
    // In the analysis it is written as null.
    if (figure.is_number_float() && std::isfinite(figure.get<double>()))
        return figure.get<double>();
    if (figure.is_string())
        return figure.get<std::string>();
    if (figure.is_structured())
        return ListLength{static_cast<std::int64_t>(figure.size())};
    return {};
}

/// The member or element that a step leads to; null when there is none.
const Json* Follow(const Json& figure, const FigureStep& step)
{
    if (step.IsMember()) {
        const auto found = figure.find(step.member);
        return figure.is_object() && found != figure.end() ? &*found : nullptr;
    }
    const auto index = static_cast<std::size_t>(step.index);
    return figure.is_array() && index < figure.size() ? &figure[index] : nullptr;
}

/// Finds the figures that a limit names, of which there are several where it says [*].
class Search {
public:
    Search(const Limit& limit, Verdict& verdict) : m_limit(limit), m_verdict(verdict) { }

    void Visit(const Json* figure, std::span<const FigureStep> steps, const std::string& name)
    {
        if (steps.empty() || !figure) {
            m_verdict.Add(
                m_limit, NameWith(name, steps), figure ? ValueOf(*figure) : FigureValue());
            return;
        }
        if (steps.front().index == FigureStep::kEveryElement && figure->is_array()) {
            for (std::int64_t i = 0; i < std::ssize(*figure); ++i)
                VisitNext(*figure, {{}, i}, steps, name);
            return;
        }
        VisitNext(*figure, steps.front(), steps, name);
    }

private:
    void VisitNext(const Json& figure, const FigureStep& step, std::span<const FigureStep> steps,
        const std::string& name)
    {
        Visit(Follow(figure, step), steps.subspan(1), NameWith(name, {&step, 1}));
    }

    static std::string NameWith(std::string name, std::span<const FigureStep> steps)
    {
        for (const FigureStep& step : steps)
            AppendStep(name, step);
        return name;
    }

    const Limit& m_limit;
    Verdict& m_verdict;
};

/// Whether a limit is of what is told only when the contents of a file have been read.
bool NeedsContents(const Limit* limit)
{
    const auto& steps = limit->figure.steps;
    return std::ranges::any_of(steps, [](const FigureStep& step) {
        return step.member.ends_with("sha256") || step.member == "result";
    });
}

bool HasFamilies(const LimitsFile& limits)
{
    return std::ranges::any_of(
        limits.Sections(), [](const LimitsSection& section) { return section.family.has_value(); });
}

} // namespace

Verdict CheckFigures(
    const Json& figures, std::span<const Limit* const> limits, const std::stop_token& stop)
{
    Verdict verdict;
    for (const Limit* limit : limits) {
        if (stop.stop_requested())
            break;
        Search(*limit, verdict).Visit(&figures, limit->figure.steps, {});
    }
    return verdict;
}

std::vector<const Limit*> LimitsFor(const Subject& subject, const LimitsFile& limits)
{
    const auto family = HasFamilies(limits) ? ScannerFamilyOf(subject) : std::nullopt;
    return limits.LimitsOf(KindId(subject.Kind()), family);
}

FileVerdict CheckFile(const Subject& subject, const LimitsFile& limits,
    const AnalyseSettings& settings, Json* handedOn)
{
    const auto applied = LimitsFor(subject, limits);
    AnalyseSettings needed = settings;
    needed.arrays = false;
    needed.contents = std::ranges::any_of(applied, NeedsContents);
    needed.hashes = needed.contents;
    FiguresResult figures = ComputeFigures(subject, needed);
    FileVerdict result{std::nullopt, std::move(figures.failure)};
    if (!figures.object.is_null())
        result.verdict = CheckFigures(figures.object, applied, settings.stop);
    if (handedOn)
        *handedOn = std::move(figures.object);
    return result;
}

namespace {

Json ValueToJson(const FigureValue& value)
{
    return std::visit(
        [](const auto& held) -> Json {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>)
                return nullptr;
            else if constexpr (std::is_same_v<Held, ListLength>)
                return held.count;
            else
                return held;
        },
        value);
}

} // namespace

Json VerdictToJson(const Subject& subject, const FileVerdict& result)
{
    const Verdict& verdict = *result.verdict;
    Json object = BeginObject(subject);
    // Figures of a file that has not got all that belongs to it say nothing for it.
    const bool isCutOff = !result.failure.empty() && verdict.checked > 0;
    object["verdict"] = OutcomeName(isCutOff ? Verdict::Outcome::Fail : verdict.Result());
    Json& failed = object["failed"] = Json::array();
    for (const FailedLimit& failure : verdict.failed) {
        Json row;
        row["name"] = failure.name;
        row["value"] = ValueToJson(failure.value);
        row["limit"] = failure.limit;
        row["line"] = failure.line;
        failed.push_back(std::move(row));
    }
    object["failed_count"] = verdict.failedCount;
    object["checked"] = verdict.checked;
    return object;
}

} // namespace vireo
