#pragma once

#include "viewers/controls/ProfileView.h"
#include "viewers/noise/NoiseData.h"
#include "viewers/noise/NoiseRuler.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vireo {

/// A mark as it is drawn: a triangle that stands on its tip at (x, y), in the drawing's units.
struct PlacedNoiseMark {
    static constexpr int kTriangleRows = 20;

    NoiseMarkKind kind = NoiseMarkKind::Dip;
    std::int32_t index = 0; ///< The marked pixel.
    int deviation = 0;      ///< How far its value lies from the average.
    double x = 0.0;
    double y = 0.0;
};

/// The marks of a plane over the stretch that a scale has in view, dips before peaks, each in
/// order. Where several of a kind fall into one unit of the width only the one that deviates the
/// most is given, so that drawing costs the width however many marks there are. The plane must be
/// summarised.
std::vector<PlacedNoiseMark> PlaceNoiseMarks(const NoisePlane& plane, const ProfileScale& scale);

/// A label of a mark: its text and the rectangle that it fills.
struct PlacedNoiseLabel {
    std::string text;
    double left = 0.0;
    double top = 0.0;
    double width = 0.0;
};

/// How wide and how high a label's text is.
struct NoiseLabelMetrics {
    std::function<double(const std::string& text)> widthOf;
    double height = 0.0;
};

/// Places the labels below their triangles, or above where there is no room below. The marks that
/// deviate the most come first; a label that would cover another is moved on by one or two lines,
/// and left out where that does not help.
std::vector<PlacedNoiseLabel> PlaceNoiseLabels(const std::vector<PlacedNoiseMark>& marks,
    const NoiseRuler& ruler, const ProfileScale& scale, const NoiseLabelMetrics& metrics);

} // namespace vireo
