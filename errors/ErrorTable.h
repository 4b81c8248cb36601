#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace vireo {

/// How a scanner moves what it scans; errors are worded for either.
enum class ScannerFeed {
    Sheet, ///< A sheet is pulled through.
    Plate, ///< A plate lies on a moving table.
};

/// One row of the table of error codes. Texts may hold line feeds and printf placeholders, which
/// the caller fills.
struct ErrorRow {
    std::uint32_t code;
    std::uint32_t severity; ///< 0 to 3: see ErrorClassName.
    std::string_view sheetText;
    std::string_view plateText;

    // The same in every row.
    static constexpr std::uint64_t kGroup = 2000;
    static constexpr std::string_view kSheetTitle = "";
    static constexpr std::string_view kPlateTitle = "";

    std::string_view TextFor(ScannerFeed feed) const
    {
        return feed == ScannerFeed::Plate ? plateText : sheetText;
    }
};

/// All rows, ascending by code. Two codes have a second row, which nobody finds.
std::span<const ErrorRow> ErrorTable();

/// The row of a code; null for an unknown one.
const ErrorRow* FindError(std::uint32_t code);

/// The text of a code for a kind of scanner; nothing for an unknown code.
std::optional<std::string_view> LookUpError(std::uint32_t code, ScannerFeed feed);

/// Who can correct errors of a severity: "User Correctable", "Support Correctable",
/// "R&D Correctable", or "Warnings"; empty above 3.
std::string_view ErrorClassName(std::uint32_t severity);

} // namespace vireo
