#pragma once

#include <string>

namespace vireo {

struct Settings;
struct Subject;

/// Draws the first page of a TIFF file as the viewer shows it: the whole picture, or so many times
/// as large about its middle, with the boundaries between cameras; or as PDF the page that the
/// viewer prints. Gives the reason when it cannot, also when only a part of the rows can be read.
std::string RenderTiff(const Subject& subject, const Settings& settings);

} // namespace vireo
