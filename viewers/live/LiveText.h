#pragma once

#include "platform/Log.h"
#include "scanner/LineAcquisition.h"
#include "viewers/controls/ProfileLine.h"
#include "viewers/controls/ProfileView.h"

#include <string>
#include <vector>

namespace vireo {

// The texts of the live tests that are worked out from their data. All are Windows-1252.

/// "SimulatedScanner (SIM1)": name and, where there is one, the number.
std::string ScannerText(const ScannerIdentity& identity);
/// "Sheet loaded" or "No sheet".
std::string PaperText(PaperStatus paper);
/// "118 lines/s, 30 shown": lines that come and pictures that are made of them in a second; only
/// that lines are taken as long as either has not been counted.
std::string RateText(double linesPerSecond, double shownPerSecond);
/// "Average of 16 lines", or "Line 1234" where each is shown as it is.
std::string AverageNote(const AcquiredLine& line);

/// "pixel 5410: 198, camera B, 229.06 mm": what lies under the cursor.
std::string CursorNote(const CursorReading& reading);

/// Date and time as the result files have them: "2026-11-21" and "09:05:07".
std::string FileDate(const CDateTime& when);
std::string FileTime(const CDateTime& when);

/// The lines printed above a live light profile.
std::vector<std::string> LiveHeaderLines(
    const ScannerIdentity& identity, ShownColour shown, const CDateTime& when, bool isSimulated);

} // namespace vireo
