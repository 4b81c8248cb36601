#pragma once

#include "app/FileKind.h"
#include "figures/FileResult.h"

namespace vireo {

struct Settings;
struct Subject;

/// Whether files of a kind have a plot.
bool CanDraw(FileKind kind);
/// Draws a file into the settings' output, or for their target.
FileResult DrawSubject(const Subject& subject, const Settings& settings);

/// Draws the file of the settings into their output; the program's exit status.
int Render(const Settings& settings);

} // namespace vireo
