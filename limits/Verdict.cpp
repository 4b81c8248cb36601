#include "limits/Verdict.h"

#include "platform/Text.h"

#include <algorithm>
#include <charconv>
#include <compare>
#include <type_traits>
#include <utility>

namespace vireo {

namespace {

/// Whole numbers compare as such, for not every large one is a double.
std::partial_ordering Compare(std::int64_t value, const LimitNumber& limit)
{
    if (limit.whole)
        return value <=> *limit.whole;
    return static_cast<double>(value) <=> limit.value;
}

std::partial_ordering Compare(double value, const LimitNumber& limit)
{
    return value <=> limit.value;
}

template <typename Number>
bool IsNumberWithin(const Limit& limit, Number value)
{
    if (limit.text || limit.flag)
        return false;
    const std::partial_ordering order = Compare(value, limit.number);
    switch (limit.relation) {
    case Relation::AtMost:
        return order <= 0;
    case Relation::Below:
        return order < 0;
    case Relation::AtLeast:
        return order >= 0;
    case Relation::Above:
        return order > 0;
    case Relation::Equal:
        return order == 0;
    case Relation::Between:
        return order >= 0 && Compare(value, limit.upper) <= 0;
    case Relation::Empty:
    case Relation::NotEmpty:
        return false;
    }
    return false;
}

bool IsEmptinessWithin(const Limit& limit, bool isEmpty)
{
    return limit.relation == (isEmpty ? Relation::Empty : Relation::NotEmpty);
}

} // namespace

bool IsWithin(const Limit& limit, const FigureValue& value)
{
    if (const auto* list = std::get_if<ListLength>(&value))
        return limit.isOfCount ? IsNumberWithin(limit, list->count)
                               : IsEmptinessWithin(limit, list->count == 0);
    if (limit.isOfCount)
        return false;
    if (const auto* text = std::get_if<std::string>(&value))
        return limit.text ? *limit.text == *text : IsEmptinessWithin(limit, text->empty());
    if (const auto* flag = std::get_if<bool>(&value))
        return limit.flag == *flag;
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        return IsNumberWithin(limit, *whole);
    if (const auto* number = std::get_if<double>(&value))
        return IsNumberWithin(limit, *number);
    return false;
}

std::string ValueText(const FigureValue& value)
{
    return std::visit(
        [](const auto& held) -> std::string {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>) {
                return "missing";
            } else if constexpr (std::is_same_v<Held, std::string>) {
                return held;
            } else if constexpr (std::is_same_v<Held, bool>) {
                return held ? "true" : "false";
            } else if constexpr (std::is_same_v<Held, ListLength>) {
                return Format(held.count == 1 ? "%lld element" : "%lld elements",
                    static_cast<long long>(held.count));
            } else {
                char text[32];
                return {text, std::to_chars(text, text + sizeof(text), held).ptr};
            }
        },
        value);
}

Verdict::Outcome Verdict::Result() const
{
    if (failedCount > 0)
        return Outcome::Fail;
    return checked > 0 ? Outcome::Pass : Outcome::NoLimits;
}

void Verdict::Add(const Limit& limit, const std::string& name, FigureValue value)
{
    if (limit.isOptional && std::holds_alternative<std::monostate>(value))
        return;
    ++checked;
    if (IsWithin(limit, value))
        return;
    if (failedCount++ < kMostFailed)
        failed.push_back({name, std::move(value), limit.wording, limit.line});
}

std::string_view OutcomeName(Verdict::Outcome outcome)
{
    switch (outcome) {
    case Verdict::Outcome::Pass:
        return "pass";
    case Verdict::Outcome::Fail:
        return "fail";
    case Verdict::Outcome::NoLimits:
        return "no limits";
    }
    return {};
}

std::string VerdictText(const Verdict& verdict)
{
    switch (verdict.Result()) {
    case Verdict::Outcome::Pass:
        return "Pass";
    case Verdict::Outcome::Fail:
        return Format("Fail: %zu of %zu", verdict.failedCount, verdict.checked);
    case Verdict::Outcome::NoLimits:
        return "No limits";
    }
    return {};
}

std::string FailureText(const Verdict& verdict, std::size_t most)
{
    std::string text;
    const std::size_t shown = std::min(most, verdict.failed.size());
    for (std::size_t i = 0; i < shown; ++i) {
        const FailedLimit& failure = verdict.failed[i];
        text += failure.name + " is " + ValueText(failure.value) + ", limit " + failure.limit
            + Format(" (line %d)\n", failure.line);
    }
    if (verdict.failedCount > shown)
        text += Format("and %zu more\n", verdict.failedCount - shown);
    if (!text.empty())
        text.pop_back();
    return text;
}

} // namespace vireo
