#include "viewers/controls/TargetDeviation.h"

#include "viewers/controls/ProfileAnalysis.h"
#include "viewers/controls/ProfileScene.h"

namespace vireo {

std::optional<TargetDeviation> MeasureTargetDeviation(
    const ProfileLine& line, const ProfileCameras& cameras, ShownColour shown)
{
    const auto& samples = line.Of(PlaneOf(shown)).samples;
    const std::optional<double> centre = FindTargetEdges(samples).Centre();
    if (!centre || cameras.pixelPitchMm <= 0.0)
        return std::nullopt;
    const double middle = static_cast<double>(samples.size()) / 2.0;
    const double deviation = (*centre - middle) * cameras.pixelPitchMm;
    return TargetDeviation{deviation, -deviation};
}

} // namespace vireo
