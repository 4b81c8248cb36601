#include "limits/FigurePath.h"

#include <algorithm>
#include <charconv>

namespace vireo {

namespace {

bool IsPlain(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z')
        || (character >= '0' && character <= '9') || character == '_';
}

std::optional<FigureStep> TakeQuotedMember(std::string_view& text)
{
    const std::size_t end = text.find('"', 1);
    if (end == std::string_view::npos || end == 1)
        return std::nullopt;
    FigureStep step{std::string(text.substr(1, end - 1))};
    text.remove_prefix(end + 1);
    return step;
}

std::optional<FigureStep> TakeMember(std::string_view& text)
{
    if (text.starts_with('"'))
        return TakeQuotedMember(text);
    const auto end = std::find_if_not(text.begin(), text.end(), IsPlain);
    FigureStep step{std::string(text.begin(), end)};
    text.remove_prefix(step.member.size());
    return step.member.empty() ? std::nullopt : std::optional(std::move(step));
}

/// "[7]" or "[*]".
std::optional<FigureStep> TakeElement(std::string_view& text)
{
    constexpr std::string_view kEvery = "[*]";
    if (text.starts_with(kEvery)) {
        text.remove_prefix(kEvery.size());
        return FigureStep{{}, FigureStep::kEveryElement};
    }
    std::int64_t index = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data() + 1, end, index);
    if (error != std::errc() || stop == end || *stop != ']' || index < 0
        || index > FigurePath::kHighestIndex)
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(stop + 1 - text.data()));
    return FigureStep{{}, index};
}

} // namespace

std::optional<FigurePath> FigurePath::Take(std::string_view& text)
{
    FigurePath path;
    std::string_view rest = text;
    for (bool goesOn = true; goesOn;) {
        const bool isElement = !path.steps.empty() && rest.starts_with('[');
        if (!isElement && !path.steps.empty())
            rest.remove_prefix(1); // The '.'.
        auto step = isElement ? TakeElement(rest) : TakeMember(rest);
        if (!step || path.steps.size() == kMostSteps)
            return std::nullopt;
        path.steps.push_back(*std::move(step));
        goesOn = rest.starts_with('.') || rest.starts_with('[');
    }
    text = rest;
    return path;
}

void AppendStep(std::string& text, const FigureStep& step)
{
    if (step.index == FigureStep::kEveryElement) {
        text += "[*]";
    } else if (!step.IsMember()) {
        text.append("[").append(std::to_string(step.index)).append("]");
    } else {
        const bool isPlain = std::all_of(step.member.begin(), step.member.end(), IsPlain);
        const char* const quote = isPlain ? "" : "\"";
        text.append(text.empty() ? "" : ".").append(quote).append(step.member).append(quote);
    }
}

std::string FigurePath::Text() const
{
    std::string text;
    for (const FigureStep& step : steps)
        AppendStep(text, step);
    return text;
}

} // namespace vireo
