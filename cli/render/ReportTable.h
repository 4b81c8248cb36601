#pragma once

#include "figures/FileSummary.h"

#include <span>
#include <string>
#include <vector>

namespace vireo {

/// What the table says instead of a verdict where a file has not got what it takes for one.
inline constexpr const char* kUnreadOutcome = "cannot be read";

/// A row of a report's table.
struct ReportRow {
    std::string name; ///< As given, in UTF-8.
    FileSummary summary;
    bool hasPage = false; ///< Its plot is in the report.

    /// The verdict, or that there is none as the file cannot be read; empty without limits for a
    /// file that can.
    std::string Outcome() const;
};

/// Everything that the table says.
struct ReportTable {
    std::vector<ReportRow> rows;
    std::string limits; ///< Name of the limits file; empty without one.
    std::string folder; ///< What all names begin with, up to a '/'; named once, at the top.

    bool HasVerdicts() const { return !limits.empty(); }
    /// "34 files: 20 pass, 10 fail, 3 without limits, 1 cannot be read": how often each outcome
    /// stands in the rows.
    std::string Tally() const;
};

/// The folder that all names begin with, its last '/' included; empty when there is none, or only
/// one file.
std::string CommonFolder(std::span<const ReportRow> rows);

} // namespace vireo
