#pragma once

#include "scanner/LineAcquisition.h"
#include "scanner/ScannerDevice.h"
#include "scanner/SimulatedScanner.h"

#include <filesystem>
#include <memory>

namespace vireo {

/// Which scanner the live tests use. It is kept in the section "Scanner" of the program's settings
/// file.
struct ScannerChoice {
    bool isSimulated = false;
    SimulatedSetup simulated;
    /// The scanner library; without a folder it is in the program's. Empty: one of
    /// ScannerLibraryCandidates.
    std::filesystem::path library;
};

/// "Vireo.ini" in the user's folder of settings.
std::filesystem::path ScannerSettingsFile();

/// The choice kept in a settings file; what is not there is as in a new ScannerChoice.
ScannerChoice ReadScannerChoice(const std::filesystem::path& settings);
/// Keeps whether the simulated scanner is used. That it cannot be kept is only logged: it holds for
/// this run all the same.
void KeepSimulated(const std::filesystem::path& settings, bool isSimulated);

/// The chosen device, not yet open.
std::unique_ptr<ScannerDevice> MakeScanner(const ScannerChoice& choice);

} // namespace vireo
