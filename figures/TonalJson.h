#pragma once

#include "figures/FiguresResult.h"

namespace vireo {

struct AnalyseSettings;
struct Subject;

/// The record of a tonal resolution file with its figures as worked out from the patches. The file
/// itself stays as it is.
FiguresResult AnalyseTonal(const Subject& subject, const AnalyseSettings& settings);

} // namespace vireo
