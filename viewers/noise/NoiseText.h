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

// The same in the noise check: " Limit = 5 %", and the average in percent of full scale, as
// "Avg = 78%".
std::string CheckLimitText(int percent);
std::string CheckAverageText(const NoiseData& data);

/// "Cursor\nPosition:  12.34".
std::string CursorPositionText(double position);

/// Today's date as the noise check writes it, such as "Sat, Nov 21  2026".
std::string NoiseDateToday();

/// The lines that the noise test prints: with the file's date, or today's where it has none, and
/// the file's limit or the usual one.
std::vector<std::string> TestHeaderLines(const NoiseData& data);

/// The lines printed above the plot: what was tested, scanner, date and limit.
std::vector<std::string> PrintedHeaderLines(
    const NoiseData& data, int limitPercent, const std::string& date);

} // namespace vireo
