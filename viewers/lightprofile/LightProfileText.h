#pragma once

#include "viewers/controls/ProfileLine.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vireo {

class LightProfileData;

/// The texts of the light profile viewer that are worked out from its data. All are Windows-1252.

/// The lines printed above the plots: scanner, date, what the profile is and, of several lines,
/// which one (0-based) is shown.
std::vector<std::string> LightProfileHeaderLines(
    const LightProfileData& data, ShownColour shown, std::int64_t line);

/// "8-bit, corrected", "Signed 32-bit, uncorrected": what the samples are. Some files do not
/// tell whether they are corrected.
std::string LightProfileKindText(const LightProfileData& data);

/// The cameras that have pixels enough to be chosen.
std::vector<int> CamerasToChoose(const ProfileCameras& cameras);

} // namespace vireo
