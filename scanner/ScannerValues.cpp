#include "scanner/ScannerValues.h"

namespace vireo {

std::optional<int> ScannerValues::ValueOf(ScannerSetting setting, SettingPlace place) const
{
    const std::optional<Setting>& found = Of(setting);
    const auto camera = static_cast<std::size_t>(place.camera);
    const auto plane = static_cast<std::size_t>(place.plane);
    if (!found || camera >= found->values.size() || plane >= found->values[camera].size())
        return std::nullopt;
    return found->values[camera][plane];
}

namespace {

ScannerError ReadSetting(ScannerDevice& device, const ScannerIdentity& identity,
    ScannerSetting setting, ScannerValues::Setting& read)
{
    if (const ScannerError error = device.GetRange(setting, read.range); error != ScannerError::Ok)
        return error;
    for (int camera = 0; camera < CamerasOf(setting, identity); ++camera)
        for (int plane = 0; plane < PlanesOf(setting, identity); ++plane) {
            int& value =
                read.values[static_cast<std::size_t>(camera)][static_cast<std::size_t>(plane)];
            const ScannerError error = device.GetValue(setting, {camera, plane}, value);
            if (error != ScannerError::Ok)
                return error;
        }
    return ScannerError::Ok;
}

} // namespace

ScannerError ScannerValues::Read(ScannerDevice& device, const ScannerIdentity& identity)
{
    for (int number = 0; number < kScannerSettings; ++number) {
        Setting read;
        const ScannerError error =
            ReadSetting(device, identity, static_cast<ScannerSetting>(number), read);
        if (error != ScannerError::Ok && error != ScannerError::NotSupported)
            return error;
        auto& kept = settings[static_cast<std::size_t>(number)];
        kept.reset();
        if (error == ScannerError::Ok)
            kept = read;
    }
    return ScannerError::Ok;
}

} // namespace vireo
