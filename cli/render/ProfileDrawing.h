#pragma once

#include "limits/LimitsFile.h"
#include "viewers/controls/ProfileLine.h"
#include "viewers/controls/ProfileView.h"

#include <string>
#include <vector>

namespace vireo {

struct Settings;
struct Subject;

/// What is drawn of a file of scan lines: one line, with the choices that the settings make.
struct ProfileDrawing {
    ProfileLine line;
    ProfileCameras cameras;
    ShownColour shown = ShownColour::Green; ///< Before the choices: the one the viewer begins with.
    int camera = 0;                         ///< The same; 0 for A.
    ProfileUnit unit;
    std::vector<Limit> limits;       ///< Marked in the plot of the whole line.
    std::vector<std::string> header; ///< Of a printed page, Windows-1252.
};

/// Takes the settings' camera and colour; gives the reason when the file has not got them, else an
/// empty text. `hasEveryPlane`: red, green and blue are there, not only the plane shown.
std::string TakeProfileChoices(
    const Settings& settings, bool hasEveryPlane, ProfileDrawing& drawing);

/// Writes the plot of the whole line or of one camera, or as PDF the page that the viewers print,
/// with the beginning and the end of a camera below the whole line. Gives the reason when it
/// cannot, else an empty text.
std::string WriteProfileDrawing(
    const Subject& subject, const Settings& settings, const ProfileDrawing& content);

} // namespace vireo
