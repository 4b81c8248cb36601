#pragma once

#include <string>

namespace vireo {

struct Settings;
struct Subject;

/// Draws the data of an adjustment test: a line of a profile, the whole of a picture, or, where the
/// data are neither, the header's keys; as PDF the page that the viewer prints. Gives the reason
/// when it cannot, else an empty text.
std::string RenderAdjustment(const Subject& subject, const Settings& settings);

} // namespace vireo
