#include "viewers/live/LiveLine.h"

namespace vireo {

namespace {
constexpr double kMillimetresPerInch = 25.4;
constexpr double kUnitsPerInch = 1200.0;
} // namespace

ProfileCameras CamerasOf(const ScannerIdentity& identity)
{
    ProfileCameras cameras;
    cameras.pixels = identity.cameraPixels;
    if (const std::size_t pixels = identity.LinePixels(); pixels > 0)
        cameras.pixelPitchMm = identity.widthPer1200 / kUnitsPerInch * kMillimetresPerInch
            / static_cast<double>(pixels);
    return cameras;
}

ShownColour FirstShown(const ScannerIdentity& identity)
{
    return identity.isColour ? ShownColour::Green : ShownColour::Gray;
}

int ScannerPlane(const ScannerIdentity& identity, ShownColour shown)
{
    if (!identity.isColour || shown == ShownColour::Red)
        return 0;
    return shown == ShownColour::Blue ? 2 : 1;
}

void FillProfileLine(const AcquiredLine& acquired, const ScannerIdentity& identity,
    ShownColour shown, bool showsHold, ProfileLine& line)
{
    line.extras.clear();
    if (identity.isColour)
        for (std::size_t plane = 0; plane < line.planes.size(); ++plane)
            line.planes[plane].samples = acquired.line.planes[plane];
    else
        line.Of(Plane::Green).samples = acquired.line.planes[0];
    if (showsHold && shown != ShownColour::All) {
        const auto plane = static_cast<std::size_t>(ScannerPlane(identity, shown));
        line.extras.push_back({"Lowest", {acquired.hold.lowest.planes[plane], {}}});
        line.extras.push_back({"Highest", {acquired.hold.highest.planes[plane], {}}});
    }
    line.Summarise();
}

} // namespace vireo
