#pragma once

#include "samples/SampleFile.h"
#include "samples/ScanModel.h"
#include "testfile/TestFileHeader.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vireo {

/// What an oscilloscope sample says of its scanner and how its data are laid out.
struct OscilloscopeSetup {
    std::string name; ///< Of the file.
    std::string scannerName = "Heron 36";
    std::string scannerID = "H36-00417";
    bool isMtf = false;
    int generation = 5;
    int scannerFamily = 5;
    int scannerWidth = 43200; ///< In 1/1200 inch.
    bool colorScanner = true;
    int color = TestFileHeader::kColorInterleaved;
    /// Leaves out items that readers expect, as tools of another age did.
    bool incomplete = false;
    std::string time = "10:42:07";
    ScanSetup scan;
};

/// The header of a sample, complete with its data offset.
TestFileHeader OscilloscopeHeader(const OscilloscopeSetup& setup);

/// The samples of the oscilloscope viewer: one and many lines, colour and gray, an MTF file, a
/// five-camera scanner, a file with missing items and a folder of several resolutions.
std::vector<SampleFile> OscilloscopeSamples();

} // namespace vireo
