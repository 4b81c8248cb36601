#pragma once

#include <string>
#include <vector>

namespace vireo {

class TonalResolutionData;

/// The report: every figure of the record in lines ended by "\n", or that there is none.
std::string TonalReport(const TonalResolutionData& data);

/// The values of every patch as a table of the same kind, lightest patch first; empty without a
/// file.
std::string TonalPatchTable(const TonalResolutionData& data);

// What stands above on paper, Windows-1252. No line is empty: such a line would be the last.

/// Above the report: which scanner was measured, when, and in which file this is told.
std::vector<std::string> TonalHeaderLines(const TonalResolutionData& data);
/// Above a plot: the same and the report.
std::vector<std::string> TonalPlotHeaderLines(const TonalResolutionData& data);

} // namespace vireo
