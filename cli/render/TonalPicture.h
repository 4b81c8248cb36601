#pragma once

#include <string>

namespace vireo {

struct Settings;
struct Subject;

/// Draws a tonal resolution file: one of the viewer's three plots, or as PDF the page that the
/// viewer prints. The file itself stays as it is. Gives the reason when it cannot, else an empty
/// text.
std::string RenderTonal(const Subject& subject, const Settings& settings);

} // namespace vireo
