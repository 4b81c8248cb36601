#pragma once

#include "viewers/controls/ProfileLine.h"
#include "viewers/controls/ProfileView.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vireo {

/// What a profile plot is asked to show.
enum class ProfileMode {
    Overview,            ///< The whole line.
    Camera,              ///< The beginning or end of one camera.
    LightProfile,        ///< The two cameras at a boundary, on one scale.
    ScanWidth,           ///< The target's outer edges and their distance.
    VerticalPositioning, ///< The transition of each plane at a boundary.
};

/// Which of the two detail views a plot is.
enum class ProfileSide { Right = 0, Left = 1 };

/// The wish of a plot: what to show, for which camera and on which side.
struct ProfileRequest {
    ProfileMode mode = ProfileMode::Overview;
    ProfileSide side = ProfileSide::Left;
    int camera = 0;    ///< 0 for A.
    int zoomStep = 16; ///< A camera's detail is the line's length divided by this.
};

/// Whose colour a mark takes.
enum class MarkTint { Red, Green, Blue, Gray, Accent };

/// A vertical line at a place of the line, with a label.
struct ProfileMark {
    double pixel = 0.0;
    MarkTint tint = MarkTint::Accent;
    std::string label;
};

/// A horizontal line at a value, over the stretch that it was taken from.
struct ProfileLevel {
    double value = 0.0;
    double from = 0.0; ///< Pixels.
    double to = 0.0;
    MarkTint tint = MarkTint::Accent;
    std::string label;
};

/// What a plot shows besides its curve: worked out from the data once for each line and request.
struct ProfileScene {
    ProfileView view;
    double low = 0.0; ///< Values at the bottom and the top of the plot.
    double high = 255.0;
    bool everyPlane = false; ///< All planes over each other, whatever colour is chosen.
    std::vector<ProfileMark> marks;
    std::vector<ProfileLevel> levels;
    bool levelLabelsAtLeft = false; ///< Else at the right.
    std::string title;              ///< The result in words; ASCII.
};

/// Works out the scene of a request. A request that the line has no answer for gives the nearest
/// stretch that it has, and a title that says so.
ProfileScene ComposeScene(const ProfileRequest& request, const ProfileLine& line, ShownColour shown,
    const ProfileCameras& cameras);

/// The plane that figures and the cursor are taken from: the shown one, green for gray and for all.
Plane PlaneOf(ShownColour shown);

/// Number of the camera left of the boundary that a camera's detail shows: the camera itself, for
/// the last its left neighbour; nothing with fewer than two cameras.
std::optional<int> BoundaryOf(int camera, int cameraCount);

} // namespace vireo
