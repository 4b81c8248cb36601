#include "cli/WholeNumber.h"

#include <charconv>
#include <system_error>

namespace vireo {

std::optional<std::int64_t> ParseWholeNumber(std::string_view text, const NumberRange& range)
{
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end || number < range.lowest || number > range.highest)
        return std::nullopt;
    return number;
}

} // namespace vireo
