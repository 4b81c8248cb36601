#pragma once

#include "viewers/controls/ProfileLine.h"
#include "viewers/controls/ProfileView.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

class OscilloscopeData;

/// The texts of the oscilloscope viewer that are worked out from its data. All are Windows-1252.

/// The lines printed above the plot: scanner, date and colour, each value behind its label that is
/// padded to 15 characters.
std::vector<std::string> PrintedHeaderLines(const OscilloscopeData& data, ShownColour shown);

/// The message for a header item that a file lacks.
std::string MissingInformation(std::string_view item);

/// The focus figure of each camera's samples in the shown plane, as "Focus   A 12.3   B 9.8"; only
/// "Focus" when no camera has samples.
std::string FocusText(const ProfileLine& line, const ProfileCameras& cameras, ShownColour shown);

/// "Line 3 of 24"; `line` counts from 0.
std::string LineText(std::int64_t line, std::int64_t lineCount);

} // namespace vireo
