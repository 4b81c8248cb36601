#pragma once

namespace vireo {

struct Settings;

/// Writes the report of the settings' files into their output; the program's exit status.
int Report(const Settings& settings);

} // namespace vireo
