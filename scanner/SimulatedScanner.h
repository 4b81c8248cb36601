#pragma once

#include "scanner/ScannerDevice.h"
#include "scanner/SimulatedSignal.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace vireo {

/// What a simulated scanner can do; the numbers are added up to its mode.
namespace SimulatedMode {
inline constexpr int kCorrects = 1;   ///< Lines are corrected for the light profile at first.
inline constexpr int kColour = 2;     ///< Three planes, otherwise one.
inline constexpr int kFeedsSheet = 4; ///< A sheet comes and goes, otherwise one is always there.
} // namespace SimulatedMode

/// Which scanner is simulated.
struct SimulatedSetup {
    int type = 4; ///< The generation: 4 and 5 have four cameras, 9 has five.
    int mode = SimulatedMode::kColour | SimulatedMode::kFeedsSheet;
    std::string name = "SimulatedScanner";
    std::uint32_t seed = 1; ///< Scanners of different seeds differ as two of a series do.
    /// Lines come no faster than this; 0: as fast as they can be computed.
    double linesPerSecond = 120.0;
    std::uint64_t sheetLines = 3600; ///< A sheet stays for so many lines,
    std::uint64_t gapLines = 600;    ///< and the next one comes after so many.
};

/// A scanner that is not there: its lines are computed, the same ones for the same seed and
/// settings. See SimulatedSignal for what they show. Stitch values reach 32 pixels to each side,
/// gains go from 0 to 255 (128 leaves the signal as it is), offsets from -128 to 127 (four make a
/// level).
class SimulatedScanner : public ScannerDevice {
public:
    explicit SimulatedScanner(SimulatedSetup setup = {});

    /// UnknownScanner for a type that there is not.
    ScannerError Open() override;
    void Close() override;
    ScannerError GetIdentity(ScannerIdentity& identity) override;
    ScannerError GetPaperStatus(PaperStatus& status) override;
    ScannerError AcquireLine(ScanLine& line) override;
    ScannerError GetRange(ScannerSetting setting, SettingRange& range) override;
    ScannerError GetValue(ScannerSetting setting, SettingPlace place, int& value) override;
    ScannerError SetValue(ScannerSetting setting, SettingPlace place, int value) override;
    bool IsSimulated() const override { return true; }

private:
    bool HasSheet() const;
    void WaitForLine();

    SimulatedSetup m_setup;
    std::optional<SimulatedSignal> m_signal; ///< While it is open.
    std::uint64_t m_lines = 0;               ///< Taken since it was opened.
    std::chrono::steady_clock::time_point m_nextLine;
};

} // namespace vireo
