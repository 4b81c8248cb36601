#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vireo {

class StarTestData;
struct StarTestSweep;

// The texts of the star test's plot and page; Windows-1252.

/// A line of the sweep list: resolution, "c" or "m" for colour or monochrome, and "<" for the
/// selected sweep.
std::string SweepListText(const StarTestSweep& sweep, bool isSelected);

/// The application factor of the selected sweep; empty when there is none. The fourth record's is
/// told with its standard deviation where the data say so.
std::string ApplicationFactorText(const StarTestData& data);

/// What is shown, for the plot's title.
std::string SweepTitle(const StarTestData& data);

/// The same in a few short lines, for beside the plot.
std::string SweepDescription(const StarTestData& data);

/// Where a line lies, in centimetres from the first one; 0 where the resolution is not known.
double CentimetresAt(double line, std::int32_t resolution);

/// The labels of the five ticks of the centimetre scale below `span` lines about a centre line.
std::array<std::string, 5> CentimetreLabels(
    double span, double centreLine, std::int32_t resolution);

/// The cursor's line number and distance.
std::string CursorLineText(std::int64_t line);
std::string CursorDistanceText(std::int64_t line, std::int32_t resolution);

/// What stands above the printed plot.
std::vector<std::string> StarTestHeaderLines(const StarTestData& data);

} // namespace vireo
