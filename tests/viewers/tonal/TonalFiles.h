#pragma once

#include "platform/Text.h"

#include <string>

namespace vireo {

/// A file with a section and these lines.
inline std::string TonalFileOf(const std::string& lines)
{
    return "[Tonal Resolution]\n" + lines;
}

/// The file whose figures are worked out by hand in TonalResolutionDataTest.cpp: of version 3, a
/// light half of white patches, a dark half of density 3 that the scanner sees as black, with two
/// odd patches.
inline std::string HandFile()
{
    std::string text = TonalFileOf("Version=3\nScannerName=By hand\nGammaSlopeLimit=7\n");
    for (int i = 0; i < 24; ++i) {
        const char* patch =
            i < 12 ? "100 2 510 510 510 130050 130050 130050" : "0.9033 2 0 0 0 0 0 0";
        if (i == 2)
            patch = "100 3 765 765 765 195083 195083 195083";
        if (i == 23)
            patch = "0.9033 2 510 0 0 130050 0 0";
        text += Format("GS%02d=%s\n", i, patch);
    }
    return text;
}

/// A file of version 1 with the fault, shorter than what would be written in its place.
inline std::string SmallFaultyFile()
{
    return TonalFileOf("Version=1\nScannerName=Old+\nBitDebthLightColor=5 5.81 5\n"
                       "GS02=83.45 108 21600 23640 21600 4330000 4840200 4330000\n");
}

} // namespace vireo
