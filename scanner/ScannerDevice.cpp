#include "scanner/ScannerDevice.h"

#include <algorithm>
#include <cmath>

namespace vireo {

namespace {
constexpr int kUnitsPerInch = 1200;
}

int ScannerIdentity::Resolution() const
{
    if (widthPer1200 <= 0)
        return 0;
    return static_cast<int>(
        std::lround(static_cast<double>(LinePixels()) * kUnitsPerInch / widthPer1200));
}

ScannerError ScannerIdentity::Check() const
{
    if (widthPer1200 <= 0)
        return ScannerError::NoWidth;
    if (cameras < 1 || cameras > kMostCameras)
        return ScannerError::UnknownScanner;
    std::int64_t pixels = 0;
    for (int camera = 0; camera < kMostCameras; ++camera) {
        const int own = cameraPixels[static_cast<std::size_t>(camera)];
        if (camera < cameras ? own < 1 : own != 0)
            return ScannerError::UnknownScanner;
        pixels += own;
    }
    return pixels <= kMostPixels ? ScannerError::Ok : ScannerError::UnknownScanner;
}

int CamerasOf(ScannerSetting setting, const ScannerIdentity& identity)
{
    switch (setting) {
    case ScannerSetting::Stitch:
        return std::max(identity.cameras - 1, 0);
    case ScannerSetting::Gain:
    case ScannerSetting::Offset:
        return identity.cameras;
    case ScannerSetting::Correction:
        break;
    }
    return 1;
}

int PlanesOf(ScannerSetting setting, const ScannerIdentity& identity)
{
    const bool isOfPlane = setting == ScannerSetting::Gain || setting == ScannerSetting::Offset;
    return isOfPlane ? identity.Planes() : 1;
}

bool HasPlace(ScannerSetting setting, SettingPlace place, const ScannerIdentity& identity)
{
    return place.camera >= 0 && place.camera < CamerasOf(setting, identity) && place.plane >= 0
        && place.plane < PlanesOf(setting, identity);
}

ScannerError OutOfRange(ScannerSetting setting)
{
    switch (setting) {
    case ScannerSetting::Stitch:
        return ScannerError::StitchOutOfRange;
    case ScannerSetting::Gain:
        return ScannerError::GainOutOfRange;
    case ScannerSetting::Offset:
        return ScannerError::OffsetOutOfRange;
    case ScannerSetting::Correction:
        break;
    }
    return ScannerError::NotSupported;
}

} // namespace vireo
