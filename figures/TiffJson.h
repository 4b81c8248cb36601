#pragma once

#include "figures/FiguresResult.h"

namespace vireo {

struct AnalyseSettings;
struct Subject;

/// What the first page of a TIFF file says, and the digest of its pixels. There is an object for
/// every file, with a failure when a row or the whole page could not be read.
FiguresResult AnalyseTiff(const Subject& subject, const AnalyseSettings& settings);

} // namespace vireo
