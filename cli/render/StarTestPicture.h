#pragma once

#include <string>

namespace vireo {

struct Settings;
struct Subject;

/// Draws a sweep of a star-test file: the viewer's plot, or as PDF the page that it prints. Gives
/// the reason when it cannot, else an empty text.
std::string RenderStarTest(const Subject& subject, const Settings& settings);

} // namespace vireo
