#pragma once

#include "app/FileKind.h"
#include "figures/Json.h"

#include <string>

namespace vireo {

class LimitsFile;
struct AnalyseSettings;
struct Subject;

/// What a report says of one file, in UTF-8.
struct FileSummary {
    std::string kind;    ///< As people read it: "light profile".
    std::string scanner; ///< Empty: the file does not say.
    std::string date;
    std::string figures; ///< The most telling ones, in a few words.
    std::string verdict; ///< "pass", "fail", "no limits"; empty without limits.
    std::string counts;  ///< Of a failure: "2 of 14".
    std::string failure; ///< Why the file cannot be read, or not all of it.
};

/// Sums up a file; `limits` may be null. Pixels are read only where limits ask for them.
FileSummary Summarise(
    const Subject& subject, const LimitsFile* limits, const AnalyseSettings& settings);

/// The most telling figures of an analysed file: "average R 201 G 198 B 192".
std::string TellingFigures(FileKind kind, const Json& figures);

} // namespace vireo
