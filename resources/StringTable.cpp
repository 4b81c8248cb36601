#include "resources/StringTable.h"

#include <algorithm>
#include <iterator>

namespace vireo {

namespace {

struct StringResource {
    int number;
    std::string_view text;
};

/// Ascending by number.
constexpr StringResource kStrings[] = {
    {StringId::kAboutCommand, "&About Vireo..."},
    {StringId::kRelease, "Release"},
    {StringId::kVersion, "Version"},
    {StringId::kBuild, "Build"},
    {StringId::kApplicationTitle, "Vireo 6"},
};

constexpr bool ComesBefore(const StringResource& string, int number)
{
    return string.number < number;
}

static_assert(std::is_sorted(std::begin(kStrings), std::end(kStrings),
    [](const StringResource& left, const StringResource& right) {
        return ComesBefore(left, right.number);
    }));

} // namespace

std::string_view LoadStringResource(int number)
{
    const auto* found =
        std::lower_bound(std::begin(kStrings), std::end(kStrings), number, ComesBefore);
    if (found == std::end(kStrings) || found->number != number)
        return {};
    return found->text;
}

} // namespace vireo
