#pragma once

#include "figures/Analysers.h"
#include "limits/LimitsFile.h"
#include "limits/Verdict.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vireo {

struct Subject;

/// What became of one file under the limits for it.
struct FileVerdict {
    std::optional<Verdict> verdict; ///< Nothing for a file that cannot be read.
    std::string failure;            ///< Why the file could not be read, or not all of it; in UTF-8.

    /// Whether all figures were there and within their limits.
    bool IsPassed() const;
};

/// The limits that hold for a file: for its kind, and for the family of its scanner. They point
/// into `limits`.
std::vector<const Limit*> LimitsFor(const Subject& subject, const LimitsFile& limits);

/// Compares the figures of a file, the same that `AnalyseFile` tells, with the limits that hold
/// for it, and hands on the figures it has read. Only what the limits ask for is read: pixels, for
/// instance, only when their digest has one. `settings` say of which line; their `unit` and `stop`
/// are heeded too.
FileVerdict CheckFile(const Subject& subject, const LimitsFile& limits,
    const AnalyseSettings& settings, Json* figures = nullptr);

/// Compares figures that are there already; asked to stop, not all of them.
Verdict CheckFigures(
    const Json& figures, std::span<const Limit* const> limits, const std::stop_token& stop = {});

/// The verdict as one JSON object.
Json VerdictToJson(const Subject& subject, const FileVerdict& verdict);

} // namespace vireo
