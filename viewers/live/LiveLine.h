#pragma once

#include "scanner/LineAcquisition.h"
#include "viewers/controls/ProfileLine.h"

namespace vireo {

/// Where the cameras of a scanner lie in its lines.
ProfileCameras CamerasOf(const ScannerIdentity& identity);

/// What is shown of a scanner's lines at first: green, or gray of a black-and-white scanner.
ShownColour FirstShown(const ScannerIdentity& identity);
/// The scanner's plane that a colour shows: the green one for all, the only one for gray.
int ScannerPlane(const ScannerIdentity& identity, ShownColour shown);

/// Makes the line for a plot, summarised, of the newest line. With `showsHold` the lowest and
/// highest values of the shown plane are drawn too; not when all planes are shown over each other.
void FillProfileLine(const AcquiredLine& acquired, const ScannerIdentity& identity,
    ShownColour shown, bool showsHold, ProfileLine& line);

} // namespace vireo
