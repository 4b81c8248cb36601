#include "cli/render/ReportTable.h"

#include "platform/Text.h"

#include <algorithm>
#include <string_view>

namespace vireo {

std::string ReportRow::Outcome() const
{
    // What is there of a damaged file may be enough to fail it.
    return summary.failure.empty() || summary.verdict == "fail" ? summary.verdict : kUnreadOutcome;
}

std::string ReportTable::Tally() const
{
    std::string text = Format(rows.size() == 1 ? "%zu file" : "%zu files", rows.size());
    const char* separator = ": ";
    const auto add = [&](std::string_view outcome, const std::string& words) {
        const auto count = std::ranges::count(rows, outcome, &ReportRow::Outcome);
        if (count == 0)
            return;
        text += separator + std::to_string(count) + ' ' + words;
        separator = ", ";
    };
    for (const char* const outcome : {"pass", "fail"})
        add(outcome, outcome);
    add("no limits", "without limits");
    add(kUnreadOutcome, kUnreadOutcome);
    return text;
}

std::string CommonFolder(std::span<const ReportRow> rows)
{
    if (rows.size() < 2)
        return {};
    std::string_view common = rows.front().name;
    for (const ReportRow& row : rows) {
        const auto end = std::ranges::mismatch(common, row.name).in1;
        common = common.substr(0, static_cast<std::size_t>(end - common.begin()));
    }
    return std::string(common.substr(0, common.rfind('/') + 1));
}

} // namespace vireo
