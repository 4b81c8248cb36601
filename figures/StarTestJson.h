#pragma once

#include "figures/FiguresResult.h"

#include <cstdint>
#include <optional>
#include <string>

namespace vireo {

class StarTestData;
struct AnalyseSettings;
struct Subject;

/// Reads a star-test file and selects a sweep of it, counted from 0; without one the viewer's stays
/// selected. Gives the reason when it cannot, else an empty text.
std::string OpenStarTest(
    const Subject& subject, std::optional<std::int64_t> sweep, StarTestData& data);

/// The settings of every sweep of a star-test file, and the figures of its curves.
FiguresResult AnalyseStarTest(const Subject& subject, const AnalyseSettings& settings);

} // namespace vireo
