#pragma once

#include "platform/PositionalFile.h"
#include "viewers/controls/ProfileLine.h"
#include "viewers/controls/ProfileScene.h"
#include "viewers/controls/ProfileView.h"

#include <array>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace vireo {

class CLPFControle;
class CWidthCenter_Control;

/// The plots of a dialog of scan lines as one: the overview of the line, the two detail views under
/// it and, where a dialog has one, the scan-width gauge between these. It keeps the line shown, the
/// colour, the camera and what the detail views show of it.
class ProfilePlots {
public:
    /// The widgets, which belong to the dialog and outlive this.
    ProfilePlots(CLPFControle& overview, CLPFControle& left, CLPFControle& right,
        CWidthCenter_Control* gauge = nullptr);

    /// What changes with the file.
    struct Layout {
        ProfileCameras cameras;
        ShownColour shown = ShownColour::Green;
        int camera = 0; ///< Of the detail views; 0 for A.
        bool showsGauge = false;
    };
    /// Takes the layout of another file: the overview shows its whole line, the detail views the
    /// beginning and the end of a camera. ShowLine comes next.
    void Fit(const Layout& layout);
    /// Has a line read and shows it in the views that are set; returns what `read` does: false when
    /// the file cannot give the line any more.
    bool ShowLine(const std::function<bool(ProfileLine&)>& read);
    void SetUnit(const ProfileUnit& unit);

    void ShowColour(ShownColour shown);
    void ShowCamera(int camera);
    void ShowDetail(ProfileMode mode);
    void ZoomAll();
    /// Prints the overview under these lines, with the detail views below it.
    void Print(std::vector<std::string> headerLines);
    void PrintPreview(std::vector<std::string> headerLines);

    /// Saves what Print prints as a picture (PNG), complete or not at all.
    FileStatus SavePicture(
        const std::filesystem::path& target, std::vector<std::string> headerLines);

    const ProfileLine& Line() const { return m_line; }
    const ProfileCameras& Cameras() const { return m_cameras; }
    ShownColour Shown() const { return m_shown; }
    int Camera() const { return m_iCamera; }
    ProfileMode Detail() const { return m_detail; }

    /// The three plots: overview, left, right.
    const std::array<CLPFControle*, 3>& All() const { return m_plots; }

private:
    void FitDetails();
    void ShowDeviation();

    std::array<CLPFControle*, 3> m_plots;
    CWidthCenter_Control* m_gauge; ///< Null where there is none.
    ProfileLine m_line;
    ProfileCameras m_cameras;
    bool m_bShowsGauge = false;
    ShownColour m_shown = ShownColour::Green;
    ProfileMode m_detail = ProfileMode::Camera;
    int m_iCamera = 0;
};

} // namespace vireo
