#pragma once

#include <string>
#include <vector>

namespace vireo {

class NoiseData;

/// The texts of the noise viewers that are worked out from their data. All are Windows-1252.

/// "Average:  200": the average of the shown plane.
std::string AverageText(const NoiseData& data);

/// The limit of the test in percent: the file's own, else `defaultPercent`.
int LimitPercent(const NoiseData& data, int defaultPercent);
/// "Limit: 5 %".
std::string LimitText(int percent);

/// "Cursor\nPosition:  12.34".
std::string CursorPositionText(double position);

/// Today's date as the noise check writes it, such as "Sat, Nov 21  2026".
std::string NoiseDateToday();

/// The lines printed above the plot: what was tested, scanner, date and limit. A file without a
/// date has that of today.
std::vector<std::string> PrintedHeaderLines(const NoiseData& data, int limitPercent);

} // namespace vireo
