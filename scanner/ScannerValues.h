#pragma once

#include "scanner/ScannerDevice.h"

#include <array>
#include <optional>

namespace vireo {

/// All settings of a scanner and their values.
struct ScannerValues {
    struct Setting {
        SettingRange range;
        using OfPlanes = std::array<int, ScannerIdentity::kMostPlanes>;
        std::array<OfPlanes, ScannerIdentity::kMostCameras> values{};
    };
    /// By ScannerSetting; nothing where the scanner does not have the setting.
    std::array<std::optional<Setting>, kScannerSettings> settings;

    const std::optional<Setting>& Of(ScannerSetting setting) const
    {
        return settings[static_cast<std::size_t>(setting)];
    }
    /// A value; nothing where there is none.
    std::optional<int> ValueOf(ScannerSetting setting, SettingPlace place) const;

    /// Asks an open scanner for everything. A setting that it does not have is no error.
    ScannerError Read(ScannerDevice& device, const ScannerIdentity& identity);
};

} // namespace vireo
