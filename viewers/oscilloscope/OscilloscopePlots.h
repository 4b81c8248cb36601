#pragma once

#include "platform/PositionalFile.h"
#include "viewers/controls/ProfileLine.h"
#include "viewers/controls/ProfileScene.h"
#include "viewers/oscilloscope/OscilloscopeChoices.h"

#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace vireo {

class CLPFControle;
class CWidthCenter_Control;
class OscilloscopeData;

/// The plots of the oscilloscope viewer as one: the overview of the line, the two detail views
/// under it and, in the camera-adjustment layout, the scan-width gauge between these. It keeps the
/// line shown, the colour, the camera and what the detail views show of it.
class OscilloscopePlots {
public:
    /// The widgets, which belong to the dialog and outlive this.
    OscilloscopePlots(CLPFControle& overview, CLPFControle& left, CLPFControle& right,
        CWidthCenter_Control& gauge);

    /// Takes the layout of another file: the overview shows its whole line, the detail views the
    /// beginning and the end of a camera. ShowLine comes next.
    void Fit(const OscilloscopeData& data, const OscilloscopeChoices& choices);
    /// Reads and shows a line (0-based) in the views that are set; false when the file cannot give
    /// it any more.
    bool ShowLine(const OscilloscopeData& data, std::int64_t line);

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
    CWidthCenter_Control& m_gauge;
    ProfileLine m_line;
    ProfileCameras m_cameras;
    bool m_bShowsGauge = false;
    ShownColour m_shown = ShownColour::Green;
    ProfileMode m_detail = ProfileMode::Camera;
    int m_iCamera = 0;
};

} // namespace vireo
