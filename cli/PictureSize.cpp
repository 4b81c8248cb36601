#include "cli/PictureSize.h"

#include "cli/CommandLine.h"

#include <string_view>

namespace vireo {

namespace {

/// A size such as "1600x500"; nothing for anything else or with a side out of range.
std::optional<PictureSize> ParseSize(std::string_view text)
{
    constexpr NumberRange kSides{1, kLongestSide};
    const std::size_t cross = text.find('x');
    if (cross == std::string_view::npos)
        return std::nullopt;
    const auto width = ParseWholeNumber(text.substr(0, cross), kSides);
    const auto height = ParseWholeNumber(text.substr(cross + 1), kSides);
    if (!width || !height)
        return std::nullopt;
    return PictureSize{static_cast<int>(*width), static_cast<int>(*height)};
}

} // namespace

void AddSizeOption(
    CommandOptions& command, const std::string& description, std::optional<PictureSize>& size)
{
    command.AddText("--size WxH", description, [&size](const std::string& text) {
        size = ParseSize(text);
        return Refusal(size ? "" : "must be WIDTHxHEIGHT, each from 1 to 16384");
    });
}

} // namespace vireo
