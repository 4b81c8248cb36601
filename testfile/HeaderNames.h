#pragma once

#include <array>
#include <string_view>

/// The section tags of test-result files, as they stand in the first line.
namespace vireo::tag {

inline constexpr std::string_view kLightProfile = "[Light Profile]";
inline constexpr std::string_view kG3LightProfile = "[G3 Light Profile]";
inline constexpr std::string_view kLiveOscilloscope = "[Live Oscilloscope]";
inline constexpr std::string_view kOscilloscope = "[Oscilloscope]";
inline constexpr std::string_view kMtf = "[MTF]";
inline constexpr std::string_view kNoiseTest = "[Noise Test]";
inline constexpr std::string_view kStitchTest = "[Stitch Test]";
inline constexpr std::string_view kKitbag = "[Kitbag]";
inline constexpr std::string_view kKestrel6Settings = "[Kestrel6 Settings]";
inline constexpr std::string_view kIsKestrel6Settings = "[IsKestrel6 Settings]";
inline constexpr std::string_view kAdjustCenterCcd = "[Adjust Center CCD]";
inline constexpr std::string_view kScanLinePositioning = "[Scan-Line Positioning]";
inline constexpr std::string_view kVerticalCameraVerification = "[Vertical Camera Verification]";
inline constexpr std::string_view kMirrorCarriageAdjustment = "[Mirror Carriage Adjustment]";
inline constexpr std::string_view kStarTest = "[StarTest]";
inline constexpr std::string_view kTonalResolution = "[Tonal Resolution]";

} // namespace vireo::tag

/// The common keys with their '='.
namespace vireo::key {

inline constexpr std::string_view kDataPointer = "DataPointer=";
inline constexpr std::string_view kScannerName = "ScannerName=";
inline constexpr std::string_view kScannerID = "Scanner ID=";
inline constexpr std::string_view kFirmwareRevision = "Firmware Revision=";
inline constexpr std::string_view kFirmwareBuild = "FirmwareBuild=";
inline constexpr std::string_view kGeneration = "Generation=";
inline constexpr std::string_view kScannerFamily = "ScannerFamily=";
inline constexpr std::string_view kResolution = "Resolution=";
inline constexpr std::string_view kColorScanner = "ColorScanner=";
inline constexpr std::string_view kCorrected = "Corrected=";
inline constexpr std::string_view kIsSigned32Profile = "IsSigned_32_Profile=";
inline constexpr std::string_view kScannerWidth = "ScannerWidth(1/1200)=";
inline constexpr std::string_view kCenterLines = "CenterLines=";
inline constexpr std::string_view kMagnification = "Magnification=";
inline constexpr std::string_view kCameraCount = "CameraCount=";
inline constexpr std::array<std::string_view, 8> kCameraPixels{"CameraAPix=", "CameraBPix=",
    "CameraCPix=", "CameraDPix=", "CameraEPix=", "CameraFPix=", "CameraGPix=", "CameraHPix="};
inline constexpr std::string_view kCameraUsed = "CameraUsed=";
inline constexpr std::string_view kSelectedCamera = "SelectedCamera=";
inline constexpr std::string_view kColor = "Color=";
inline constexpr std::string_view kHeight = "Height=";
inline constexpr std::string_view kLength = "Length=";
inline constexpr std::string_view kWidth = "Width=";
inline constexpr std::string_view kDate = "Date=";
inline constexpr std::string_view kTime = "Time=";
inline constexpr std::string_view kNoiseLimit = "NoiseLimit=";
inline constexpr std::string_view kProgramName = "ProgramName=";
inline constexpr std::string_view kProgramVersion = "ProgramVersion=";
inline constexpr std::string_view kProgramBuild = "ProgramBuild=";
inline constexpr std::string_view kKestrel6Revision = "Kestrel6 Revision=";
inline constexpr std::string_view kKestrel6Build = "Kestrel6 Build=";
inline constexpr std::string_view kUsesDefaultDirectory = "KvMT_ContScanUseDefaultDirectory=";

/// A key without its '=': as it is listed, and as the scanner's name is searched.
constexpr std::string_view WithoutEquals(std::string_view key)
{
    return key.substr(0, key.size() - 1);
}

} // namespace vireo::key
