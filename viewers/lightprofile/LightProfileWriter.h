#pragma once

#include "platform/PositionalFile.h"
#include "viewers/controls/ProfileLine.h"
#include "viewers/lightprofile/LightProfileRecord.h"

#include <filesystem>
#include <span>

namespace vireo {

/// Writes a light profile in its text form: the header, then the lines; complete or absent. What
/// the lines are decides on some keys, whatever the record says of them: "IsSigned_32_Profile" on
/// the kind of samples, "Color" on the planes (three are written as red, green, blue, pixel by
/// pixel; one plane, in green, as the record's colour, gray where that stands for several) and
/// "Height" on their number.
///
/// All lines have the planes and the kind of samples of the first. A line is as long as the
/// shortest of its planes.
FileStatus WriteLightProfile(const std::filesystem::path& target, const LightProfileRecord& record,
    std::span<const ProfileLine> lines);

} // namespace vireo
