#pragma once

namespace vireo {

/// Command numbers that mean the same in every dialog.
namespace CommandId {
/// The system menu's "&About Vireo...". The system keeps the lowest four bits of such commands
/// for itself, so they are masked off before comparing.
inline constexpr int kAbout = 16;
inline constexpr int kSystemCommandMask = 0xFFF0;
/// The accelerator command of all viewers: shows the header of the file on view.
inline constexpr int kShowHeader = 40001;
} // namespace CommandId

/// Controls of the main dialog.
namespace LauncherId {
inline constexpr int kExit = 1000;
inline constexpr int kLightProfile = 1001;
inline constexpr int kStitch = 1005;
inline constexpr int kNoiseCheck = 1008;
} // namespace LauncherId

/// Controls of the dialog "Software Oscilloscope".
namespace OscilloscopeId {
inline constexpr int kExit = 2;
inline constexpr int kRed = 1078;
inline constexpr int kGreen = 1079;
inline constexpr int kBlue = 1080;
inline constexpr int kLeftDetail = 1081;
inline constexpr int kOverview = 1082;
inline constexpr int kLeftDetailScrollBar = 1083;
inline constexpr int kCameraA = 1084;
inline constexpr int kCameraB = 1085;
inline constexpr int kCameraC = 1086;
inline constexpr int kCameraD = 1087;
inline constexpr int kOverviewScrollBar = 1089;
inline constexpr int kRightDetail = 1090;
inline constexpr int kRightDetailScrollBar = 1091;
inline constexpr int kCameraE = 1092;
inline constexpr int kZoomAll = 1093;
inline constexpr int kPrint = 1094;
inline constexpr int kCameraF = 1095;
inline constexpr int kCameraG = 1096;
inline constexpr int kSave = 1097;
inline constexpr int kCameraH = 1099;
inline constexpr int kDetailViewGroup = 1102;
inline constexpr int kDetailNormal = 1103;
inline constexpr int kDetailScanWidth = 1104;
inline constexpr int kDetailVerticalPositioning = 1105;
inline constexpr int kLightProfileGroup = 1106;
inline constexpr int kUncorrected = 1107;
inline constexpr int kCorrected = 1108;
inline constexpr int kUncorrectedCheck = 1110;
inline constexpr int kCorrectedCheck = 1111;
inline constexpr int kLoad = 1117;
inline constexpr int kDetailLightProfile = 1119;
inline constexpr int kPosition = 1121;
inline constexpr int kPauseEdit = 1123;
inline constexpr int kPauseSpin = 1124;
inline constexpr int kPauseLabel = 1125;
inline constexpr int kShowFocus = 1127;
inline constexpr int kWidthGauge = 1132;
inline constexpr int kFolderEntry = 1133;
inline constexpr int kChange = 14001;
} // namespace OscilloscopeId

/// Controls of the dialog "Noise Test".
namespace NoiseTestId {
inline constexpr int kExit = 2;
inline constexpr int kCursorPosition = 1002;
inline constexpr int kLimit = 1011;
inline constexpr int kPlot = 1014;
inline constexpr int kSave = 1015;
inline constexpr int kZoomAll = 1016;
inline constexpr int kRed = 1018;
inline constexpr int kGreen = 1019;
inline constexpr int kBlue = 1020;
inline constexpr int kInch = 1022;
inline constexpr int kCentimetre = 1023;
inline constexpr int kScanUnit = 1024;
inline constexpr int kScrollBar = 1025;
inline constexpr int kPrint = 1026;
inline constexpr int kRescan = 1027;
inline constexpr int kLoad = 1028;
inline constexpr int kGray = 1029;
inline constexpr int kAverage = 1030;
} // namespace NoiseTestId

/// Controls of the dialog "Noise Check Test".
namespace NoiseCheckId {
inline constexpr int kPosition = 1002;
inline constexpr int kRed = 1004;
inline constexpr int kGreen = 1006;
inline constexpr int kBlue = 1009;
inline constexpr int kLimit = 1011;
inline constexpr int kZoomAll = 1013;
inline constexpr int kExit = 1016;
inline constexpr int kAverage = 1030;
} // namespace NoiseCheckId

/// Controls of the dialog "View Stitching File".
namespace StitchId {
inline constexpr int kExit = 1000;
inline constexpr int kLoad = 1010;
inline constexpr int kZoomOneToOne = 1015;
inline constexpr int kPrint = 1032;
} // namespace StitchId

/// Controls of the tonal resolution dialog.
namespace TonalResolutionId {
inline constexpr int kLoad = 10014;
inline constexpr int kPlot = 14000;
inline constexpr int kShowReport = 14014;
inline constexpr int kReport = 14015;
inline constexpr int kSecondReport = 14016;
// Commands of its accelerator table.
inline constexpr int kBestFit = 40101;
inline constexpr int kDifference = 40102;
inline constexpr int kDynamicRange = 40103;
inline constexpr int kReportCommand = 40104;
} // namespace TonalResolutionId

} // namespace vireo
