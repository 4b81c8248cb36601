#pragma once

#include "figures/FileResult.h"

namespace vireo {

struct AnalyseSettings;
struct Subject;

/// What the first page of a TIFF file says, and the digest of its pixels. There is an object for
/// every file, with a failure when a row or the whole page could not be read.
FileResult AnalyseTiff(const Subject& subject, const AnalyseSettings& settings);

} // namespace vireo
