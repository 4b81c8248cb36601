#pragma once

#include <string>

namespace vireo {

struct Settings;
struct Subject;

/// Draws the picture of a stitch test file: the part that the viewer begins with at the settings'
/// size and zoom, or the whole picture, or as PDF the page that the viewer prints of it. Gives the
/// reason when it cannot, else an empty text.
std::string RenderStitch(const Subject& subject, const Settings& settings);

} // namespace vireo
