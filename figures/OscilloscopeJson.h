#pragma once

#include "figures/FiguresResult.h"

#include <cstdint>
#include <string>

namespace vireo {

class OscilloscopeData;
struct AnalyseSettings;
struct Subject;

/// Header values, layout and the figures of one line of an oscilloscope or MTF file.
FiguresResult AnalyseOscilloscope(const Subject& subject, const AnalyseSettings& settings);

/// Opens an oscilloscope or MTF file of which line `line` (0-based) is wanted; gives the reason
/// when it cannot be read or has no such line, else an empty text.
std::string OpenOscilloscope(const Subject& subject, std::int64_t line, OscilloscopeData& data);

} // namespace vireo
