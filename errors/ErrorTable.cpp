#include "errors/ErrorTable.h"

#include <algorithm>
#include <iterator>

namespace vireo {

namespace {

constexpr ErrorRow kRows[] = {
#include "ErrorRows.inc"
};

static_assert(std::ranges::is_sorted(kRows, {}, &ErrorRow::code));

} // namespace

std::span<const ErrorRow> ErrorTable()
{
    return kRows;
}

const ErrorRow* FindError(std::uint32_t code)
{
    const auto* const found = std::ranges::lower_bound(kRows, code, {}, &ErrorRow::code);
    return found != std::end(kRows) && found->code == code ? found : nullptr;
}

std::optional<std::string_view> LookUpError(std::uint32_t code, ScannerFeed feed)
{
    const ErrorRow* const row = FindError(code);
    return row ? std::optional(row->TextFor(feed)) : std::nullopt;
}

std::string_view ErrorClassName(std::uint32_t severity)
{
    constexpr std::string_view kNames[] = {
        "User Correctable", "Support Correctable", "R&D Correctable", "Warnings"};
    return severity < std::size(kNames) ? kNames[severity] : std::string_view();
}

} // namespace vireo
