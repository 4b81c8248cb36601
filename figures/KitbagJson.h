#pragma once

#include "figures/FiguresResult.h"

#include <string>

namespace vireo {

class PackedDump;
struct AnalyseSettings;
struct Subject;

/// Opens a dump; gives the reason when it cannot be read.
std::string OpenDump(const Subject& subject, PackedDump& dump);

/// The directory of a packed dump and the digest of each member. Where the dump ends before a
/// member does, there is no digest of it and, besides the object, a failure.
FiguresResult AnalyseKitbag(const Subject& subject, const AnalyseSettings& settings);

} // namespace vireo
