#pragma once

#include <string>

namespace vireo {

struct Settings;
struct Subject;

/// Draws the line of a noise test file: the plot of one plane, or as PDF the page that the viewer
/// prints. Gives the reason when it cannot, else an empty text.
std::string RenderNoise(const Subject& subject, const Settings& settings);

} // namespace vireo
