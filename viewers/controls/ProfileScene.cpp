#include "viewers/controls/ProfileScene.h"

#include "platform/Text.h"
#include "viewers/controls/ProfileAnalysis.h"

#include <algorithm>
#include <cmath>

namespace vireo {

namespace {

/// The light profile compares this share of the line on either side of a boundary.
constexpr std::int64_t kLightProfileShare = 32;
/// Boundary transitions lie within so many pixels of the boundary.
constexpr std::int64_t kTransitionReach = 48;
/// An edge of the target is shown with so many pixels on either side.
constexpr double kEdgeReach = 64.0;

struct PlaneName {
    Plane plane;
    MarkTint tint;
    const char* name;
};
constexpr PlaneName kPlaneNames[] = {{Plane::Red, MarkTint::Red, "Red"},
    {Plane::Green, MarkTint::Green, "Green"}, {Plane::Blue, MarkTint::Blue, "Blue"}};

std::span<const std::uint8_t> SamplesOf(const ProfileLine& line, Plane plane)
{
    return line.Of(plane).samples;
}

std::string Millimetres(double pixels, const ProfileCameras& cameras)
{
    return cameras.pixelPitchMm > 0.0 ? Format(" = %.2f mm", pixels * cameras.pixelPitchMm) : "";
}

ProfileScene CameraScene(
    const ProfileRequest& request, const ProfileLine& line, const ProfileCameras& cameras)
{
    // A line of which no cameras are known is one stretch.
    const bool hasCameras = cameras.Count() > 0;
    const auto start = static_cast<double>(hasCameras ? cameras.Start(request.camera) : 0);
    const auto end = static_cast<double>(hasCameras ? cameras.End(request.camera) : line.Length());
    ProfileScene scene;
    if (end <= start && !hasCameras)
        return scene;
    if (end <= start) {
        scene.view = ProfileView::Whole(line.Length());
        scene.title = Format("Camera %c has no pixels", ProfileCameras::Letter(request.camera));
        return scene;
    }
    const double step = static_cast<double>(line.Length()) / std::max(request.zoomStep, 1);
    const double length = std::clamp(step, std::min(end - start, ProfileView::kShortest),
        std::max(end - start, ProfileView::kShortest));
    const bool isLeft = request.side == ProfileSide::Left;
    scene.view = {isLeft ? start : end - length, length};
    if (hasCameras)
        scene.title = Format("Camera %c, %s %.0f of %.0f pixels",
            ProfileCameras::Letter(request.camera), isLeft ? "first" : "last", length, end - start);
    else
        scene.title =
            Format("%s %.0f of %.0f pixels", isLeft ? "First" : "Last", length, end - start);
    return scene;
}

/// Shows the values of a range with some air, never narrower than 16 levels.
void FitValues(ProfileScene& scene, const ValueRange<std::int32_t>& range, bool isWide)
{
    constexpr double kNarrowest = 16.0;
    const double low = range.lowest;
    const double high = range.highest;
    const double air = std::max((high - low) * 0.1, (kNarrowest - (high - low)) / 2.0);
    scene.low = isWide ? low - air : std::max(low - air, 0.0);
    scene.high = isWide ? high + air : std::min(high + air, 255.0);
}

/// The values of all planes that are shown.
ValueRange<std::int32_t> ShownRange(
    const ProfileLine& line, ShownColour shown, std::int64_t begin, std::int64_t end)
{
    ValueRange<std::int32_t> range;
    for (const PlaneName& named : kPlaneNames)
        if (shown == ShownColour::All || named.plane == PlaneOf(shown))
            range.Include(line.RangeOf(named.plane, begin, end));
    return range;
}

/// 32-bit samples may lie anywhere: the whole line's values are shown, and stay where they are
/// while the view moves.
void FitToLine(ProfileScene& scene, const ProfileLine& line, ShownColour shown)
{
    const auto range = ShownRange(line, shown, 0, line.Length());
    if (!range.IsEmpty())
        FitValues(scene, range, true);
}

std::optional<BoundaryMeans> MeansAt(
    const ProfileLine& line, Plane plane, std::int64_t boundary, std::int64_t reach)
{
    return line.IsWide() ? MeasureBoundary(line.WideOf(plane).samples, boundary, reach)
                         : MeasureBoundary(line.Of(plane).samples, boundary, reach);
}

ProfileScene LightProfileScene(const ProfileRequest& request, const ProfileLine& line,
    ShownColour shown, const ProfileCameras& cameras, int leftCamera)
{
    const Plane plane = PlaneOf(shown);
    const std::int64_t boundary = cameras.End(leftCamera);
    const std::int64_t reach = std::max<std::int64_t>(
        std::min({line.Length() / kLightProfileShare, boundary - cameras.Start(leftCamera),
            cameras.End(leftCamera + 1) - boundary}),
        1);
    const bool isLeft = request.side == ProfileSide::Left;
    ProfileScene scene;
    const auto middle = static_cast<double>(boundary);
    const auto length = static_cast<double>(reach);
    scene.view = {isLeft ? middle - length : middle, length};

    const auto means = MeansAt(line, plane, boundary, reach);
    const char left = ProfileCameras::Letter(leftCamera);
    const char right = ProfileCameras::Letter(leftCamera + 1);
    if (!means) {
        scene.title = Format("%c | %c: no data at this boundary", left, right);
        return scene;
    }
    FitValues(scene, ShownRange(line, shown, boundary - reach, boundary + reach), line.IsWide());
    // Away from the boundary, where the target's lines are.
    scene.levelLabelsAtLeft = isLeft;
    const auto level = [&](char camera, double mean, bool here) {
        scene.levels.push_back({mean, scene.view.first, scene.view.End(),
            here ? MarkTint::Accent : MarkTint::Gray, Format("mean of %c %.1f", camera, mean)});
    };
    level(left, means->left, isLeft);
    level(right, means->right, !isLeft);
    scene.title = Format("Camera %c at %c | %c: mean %.1f%s", isLeft ? left : right, left, right,
        isLeft ? means->left : means->right, shown == ShownColour::All ? " (green)" : "");
    if (!isLeft && means->left > 0.0)
        scene.title +=
            Format(", step %+.1f (%+.1f %%)", means->Step(), 100.0 * means->Step() / means->left);
    else if (!isLeft && line.IsWide()) // Nothing that a share could be taken of.
        scene.title += Format(", step %+.1f", means->Step());
    return scene;
}

ProfileScene ScanWidthScene(const ProfileRequest& request, const ProfileLine& line,
    ShownColour shown, const ProfileCameras& cameras)
{
    const TargetEdges edges = FindTargetEdges(SamplesOf(line, PlaneOf(shown)));
    const bool isLeft = request.side == ProfileSide::Left;
    const std::optional<double> edge = isLeft ? edges.left : edges.right;
    const double lineEnd = static_cast<double>(line.Length());
    ProfileScene scene;
    const double middle = edge.value_or(isLeft ? kEdgeReach : lineEnd - kEdgeReach);
    scene.view = {middle - kEdgeReach, 2.0 * kEdgeReach};
    if (!edge) {
        scene.title = isLeft ? "No left edge found" : "No right edge found";
        return scene;
    }
    scene.marks.push_back({*edge, MarkTint::Accent, Format("%.2f px", *edge)});
    if (const auto width = edges.Width(); width && !isLeft)
        scene.title = Format("Width between edges %.2f px", *width) + Millimetres(*width, cameras);
    else
        scene.title = Format("%s edge at %.2f px", isLeft ? "Left" : "Right", *edge)
            + Millimetres(*edge, cameras);
    return scene;
}

/// The boundary that vertical positioning shows on one side of a camera: its own edge, except that
/// the outer cameras show their inner edge on both sides.
std::int64_t EdgeToPosition(const ProfileRequest& request, const ProfileCameras& cameras)
{
    const int last = std::max(cameras.Count() - 1, 0);
    const bool hasInnerEdge = last > 0;
    const bool isLeft = request.side == ProfileSide::Left;
    if (hasInnerEdge && request.camera == 0)
        return cameras.End(0);
    if (hasInnerEdge && request.camera >= last)
        return cameras.Start(last);
    return isLeft ? cameras.Start(request.camera) : cameras.End(request.camera);
}

ProfileScene VerticalPositioningScene(
    const ProfileRequest& request, const ProfileLine& line, const ProfileCameras& cameras)
{
    const std::int64_t boundary = EdgeToPosition(request, cameras);
    const auto middle = static_cast<double>(boundary);
    ProfileScene scene;
    scene.everyPlane = true;
    scene.view = {middle - kTransitionReach, 2.0 * kTransitionReach};
    const bool isGray = SamplesOf(line, Plane::Red).empty();
    for (const PlaneName& named : kPlaneNames) {
        const auto at = FindTransition(SamplesOf(line, named.plane), boundary, kTransitionReach);
        if (!at)
            continue;
        const std::string name = isGray ? "Gray" : named.name;
        scene.marks.push_back({*at, isGray ? MarkTint::Gray : named.tint, ""});
        scene.title +=
            Format("%s%s %+.2f", scene.title.empty() ? "" : ", ", name.c_str(), *at - middle);
    }
    scene.title = scene.title.empty()
        ? Format("No transition at pixel %.0f", middle)
        : Format("Transition from pixel %.0f: ", middle) + scene.title;
    return scene;
}

ProfileScene SceneOf(const ProfileRequest& request, const ProfileLine& line, ShownColour shown,
    const ProfileCameras& cameras)
{
    switch (request.mode) {
    case ProfileMode::Overview:
        break;
    case ProfileMode::Camera:
        return CameraScene(request, line, cameras);
    case ProfileMode::LightProfile:
        if (const auto boundary = BoundaryOf(request.camera, cameras.Count()))
            return LightProfileScene(request, line, shown, cameras, *boundary);
        return VerticalPositioningScene(request, line, cameras);
    case ProfileMode::ScanWidth:
        return ScanWidthScene(request, line, shown, cameras);
    case ProfileMode::VerticalPositioning:
        return VerticalPositioningScene(request, line, cameras);
    }
    ProfileScene scene;
    scene.view = ProfileView::Whole(line.Length());
    return scene;
}

} // namespace

Plane PlaneOf(ShownColour shown)
{
    if (shown == ShownColour::Red)
        return Plane::Red;
    return shown == ShownColour::Blue ? Plane::Blue : Plane::Green;
}

std::optional<int> BoundaryOf(int camera, int cameraCount)
{
    if (cameraCount < 2)
        return std::nullopt;
    return std::clamp(camera, 0, cameraCount - 2);
}

ProfileScene ComposeScene(const ProfileRequest& request, const ProfileLine& line, ShownColour shown,
    const ProfileCameras& cameras)
{
    ProfileRequest valid = request;
    valid.camera = std::clamp(request.camera, 0, ProfileCameras::kCameras - 1);
    ProfileScene scene = SceneOf(valid, line, shown, cameras);
    if (line.IsWide() && scene.levels.empty())
        FitToLine(scene, line, shown);
    scene.view = scene.view.Within(line.Length());
    return scene;
}

} // namespace vireo
