#pragma once

#include <string>

namespace vireo {

struct Settings;
struct Subject;

/// Draws a line of an oscilloscope or MTF file: the plot of the whole line or of one camera, or as
/// PDF the page that the viewer prints, with the beginning and the end of a camera below the whole
/// line. Gives the reason when it cannot, else an empty text.
std::string RenderOscilloscope(const Subject& subject, const Settings& settings);

} // namespace vireo
