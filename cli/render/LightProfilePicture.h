#pragma once

#include <string>

namespace vireo {

struct Settings;
struct Subject;

/// Draws a line of a light profile: the plot of the whole line or of one camera, or as PDF the page
/// that the viewer prints. Gives the reason when it cannot, else an empty text.
std::string RenderLightProfile(const Subject& subject, const Settings& settings);

} // namespace vireo
