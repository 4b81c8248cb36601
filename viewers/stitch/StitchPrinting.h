#pragma once

#include <string>
#include <vector>

namespace vireo {

class CPicture_Control;

/// The print command of the stitch viewer: what the control shows, under header lines
/// (Windows-1252), after the print dialog. Waits for the picture's reduced levels where it needs
/// them.
void PrintStitch(
    CPicture_Control& picture, const std::vector<std::string>& header, const char* documentName);
/// The same in the preview window.
void PreviewStitch(
    CPicture_Control& picture, const std::vector<std::string>& header, const char* documentName);

} // namespace vireo
