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

/// What stands above plot and report on paper: which scanner was measured, when, and from which
/// file. Windows-1252, no line is empty.
std::vector<std::string> TonalHeaderLines(const TonalResolutionData& data);

} // namespace vireo
