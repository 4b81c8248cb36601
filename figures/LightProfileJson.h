#pragma once

#include <cstdint>
#include <string>

namespace vireo {

class LightProfileData;
struct Subject;

/// Opens a light profile of which line `line` (0-based) is wanted; gives the reason when it cannot
/// be read or has no such line, else an empty text.
std::string OpenLightProfile(const Subject& subject, std::int64_t line, LightProfileData& data);

} // namespace vireo
