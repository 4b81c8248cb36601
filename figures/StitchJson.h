#pragma once

#include "figures/FiguresResult.h"

namespace vireo {

struct AnalyseSettings;
struct Subject;

/// The record of a stitch test file, and a digest of its picture.
FiguresResult AnalyseStitch(const Subject& subject, const AnalyseSettings& settings);

} // namespace vireo
