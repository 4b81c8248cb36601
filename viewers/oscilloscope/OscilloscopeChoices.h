#pragma once

#include "viewers/controls/ProfileLine.h"

#include <array>

namespace vireo {

class OscilloscopeData;

/// What the oscilloscope viewer offers for a file, and what of it is chosen at first.
struct OscilloscopeChoices {
    /// One plane that is no colour: the green button stands for it, and the others are not offered.
    bool isGray = false;
    /// Whether red, blue and all can be shown beside green; the data of a colour scanner may hold
    /// one plane, which is kept as green.
    bool hasEveryPlane = false;
    /// As the file asks for, green where it lacks the plane.
    ShownColour shown = ShownColour::Green;

    std::array<bool, ProfileCameras::kCameras> cameras{}; ///< Those with pixels enough.
    /// The camera before where the file offers it, else its first; 0 where it offers none.
    int camera = 0;
    bool hasCameras = false;

    /// The layout of scanners whose cameras are adjusted by the target's centre: another name for
    /// the light profile, no scan width and no vertical positioning, but the gauge.
    bool usesCameraAdjustment = false;
};

/// The choices of a file that was read; those of an empty plot where reading failed.
OscilloscopeChoices ChoicesFor(const OscilloscopeData& data, int cameraBefore);

} // namespace vireo
