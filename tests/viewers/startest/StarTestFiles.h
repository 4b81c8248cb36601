#pragma once

#include "platform/Text.h"

#include <string>

namespace vireo {

/// The start of a star-test file.
inline std::string StarTestStart(int sweeps, int repeat = 0)
{
    return Format("[StarTest]\nVersion = 1\nSweep = %d\n", sweeps)
        + (repeat > 0 ? Format("Repeat = %d\n", repeat) : std::string())
        + "ScannerName=Heron 36\nDate=1.3.2026\nTime=13:05\nBEGIN_DATA\n";
}

/// A sweep of which nothing but its lines and its X positions matters: a straight line, but for one
/// line.
inline std::string PlainSweep(int lines, double bump = 0.0, const std::string& settings = {})
{
    std::string text =
        Format("Length = %d\nResolution = 300\nXVib_Start = 1\nXVib_End = %d\n", lines, lines - 2)
        + settings;
    for (int i = 0; i < lines; ++i)
        text += Format("%d\t %5.2f\t 0.00\t0\t 0.00\t 0\t0\t0  0.00\t 0.00 0\t0\t\n", i,
            1000.0 - i + (i == lines / 2 ? bump : 0.0));
    return text + "END_DATA\n";
}

/// Six lines whose figures are worked out by hand:
///
/// - Scan speed. Entry 0: 0 up to line 2. Entry 1: 100,000 / 10 / 5000 = 2 up to line 4. Entry 2
/// has
///   the time of entry 1: 0 up to line 5. Entry 3: 300,000 / 20 / 5000 = 3 up to the end.
/// - Wide line. The middle of 0 and 6 is line 3, at 14: -4 -3 -2 0 -1 -4. Of the 81 values about
///   line i, 41 - i are the first or lie before it, 36 + i are the last or lie behind it:
///   -4 x 77 - 3 - 2 + 0 - 1 = -314 at every line, over 81.
/// - Widths. X, lines 1 to 4: 4 6 5 5, mean 5. Y, lines 1 to 3: 2 3 4, mean 3.
/// - X vibration from 99.5 at line 1: 0, 98 - 99.5 + 1 = -0.5; restart at line 3: 0,
///   96.75 - 97.75 + 1 = 0. Y from 49 at line 1: 0, 48.5 - 49 + 1 = 0.5, 47 - 49 + 2 = 0.
/// - Six lines are too few to be compensated.
/// - X average, lines 1 to 3: the pieces are two values, whose line goes through both, and one.
///   Y average, lines 1 to 3: 0 0.5 0 has the level line 1/6: -1/6, 1/3, -1/6.
inline std::string HandWorkedSweep()
{
    return "Length = 6\nScanSpeed = 3\nScanWidth =   8.5\nResolution = 300\n"
           "XVib_Start = 1\nXVib_End = 4\nYVib_Start = 1\nYVib_End = 3\n"
           "WideLine_Start = 0\nWideLine_End = 6\nScanSpeedIndex = 4\n"
           "ScanSpeedWidth = 5100\nScanSpeedBytePerPix = 3\nAvgResult = 0\n"
           "0\t 100.00\t50.00\t7\t10.00\t 1000\t0\t2  4.00\t 3.00 0\t0\t\n"
           "1\t 99.50\t49.00\t7\t11.00\t 1010\t100000\t4  4.00\t 2.00 0\t0\t\n"
           "2\t 98.00\t48.50\t7\t12.00\t 1010\t100000\t5  6.00\t 3.00 0\t0\t\n"
           "3\t 97.75\t47.00\t7\t14.00\t 1030\t300000\t99  5.00\t 4.00 1\t0\t\n"
           "4\t 96.75\t46.00\t7\t13.00\t 0\t0\t0  5.00\t 9.00 0\t0\t\n"
           "5\t 96.00\t45.00\t-7\t10.00\t 0\t0\t0  9.00\t 9.00 0\t1\t\n"
           "END_DATA\n";
}

} // namespace vireo
