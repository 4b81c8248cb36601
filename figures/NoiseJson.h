#pragma once

#include "figures/FiguresResult.h"

namespace vireo {

struct AnalyseSettings;
struct Subject;

/// The record of a noise test file, and where each of its planes leaves the band.
FiguresResult AnalyseNoise(const Subject& subject, const AnalyseSettings& settings);

} // namespace vireo
