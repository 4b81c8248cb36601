#pragma once

#include "platform/Path.h"
#include "scanner/LibraryScanner.h"
#include "scanner/SimulatedScanner.h"

#include <filesystem>
#include <memory>
#include <string>

namespace vireo {

inline std::filesystem::path TestScannerLibrary(const std::string& name)
{
    return PathFromUtf8(VIREO_SCANNER_LIBRARIES) / ("Scanner" + name + ".dll");
}

inline std::unique_ptr<ScannerDevice> MakeTestLibraryScanner(const std::string& name = "Good")
{
    return std::make_unique<LibraryScanner>(std::vector{TestScannerLibrary(name)});
}

/// A simulation that does not wait between its lines.
inline SimulatedSetup FastSimulation()
{
    SimulatedSetup setup;
    setup.linesPerSecond = 0.0;
    return setup;
}

} // namespace vireo
