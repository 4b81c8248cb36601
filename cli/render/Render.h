#pragma once

namespace vireo {

struct Settings;

/// Draws the file of the settings into their output; the program's exit status.
int Render(const Settings& settings);

} // namespace vireo
