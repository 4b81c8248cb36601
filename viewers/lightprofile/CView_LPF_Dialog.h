#pragma once

#include "viewers/controls/CViewerDialog.h"
#include "viewers/controls/PositionUnit.h"
#include "viewers/controls/ProfilePlots.h"
#include "viewers/controls/ProfileView.h"
#include "viewers/lightprofile/LightProfileData.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>

namespace Ui {
class CView_LPF_Dialog;
}

namespace vireo {

/// The "Light Profile" viewer: what the cameras see of an evenly lit target, as an overview of the
/// line with two detail views under it, as in the oscilloscope. The detail views show the ends of a
/// camera, or both sides of its boundary on one scale. The unit of the positions is kept between
/// runs.
///
/// Keys: A to H choose a camera, + and - zoom the overview, 0 and Home show its whole line; Page Up
/// and Page Down step through the lines of a file that has several.
class CView_LPF_Dialog : public CViewerDialog {
    Q_OBJECT

public:
    /// Shows a file; an empty path shows an empty plot.
    explicit CView_LPF_Dialog(const std::filesystem::path& file, QWidget* parent = nullptr);
    ~CView_LPF_Dialog() override;

protected:
    void OnInitDialog() override;
    std::filesystem::path ShownFile() const override;
    std::string_view ShownKind() const override { return "light-profile"; }
    void keyPressEvent(QKeyEvent* event) override;

private:
    void SetUpControls();
    void SetUpChoices();
    void SetUpMenus();

    void ReadFile(const std::filesystem::path& path);
    void FitDialogToFile();
    void FitColours();
    void FitCameras(const ProfileCameras& cameras);
    void ShowFileName();
    void ShowLine();
    void ShowFigures();
    void ShowCursor(const std::optional<CursorReading>& reading, bool isOverview);
    std::vector<std::string> HeaderLines() const;
    std::filesystem::path AskForTarget(
        const QString& title, const QString& filter, const QString& extension);

    void OnColour(int shown);
    void OnUnit(int unit);
    void OnLine(int number);
    void OnLoad();
    void OnPrint();
    void OnPrintPreview();
    void OnExportLine();
    void OnSavePicture();
    void OnZoom(int steps);
    bool OnKey(int key);

    std::unique_ptr<Ui::CView_LPF_Dialog> m_ui;
    LightProfileData m_data;
    bool m_bLoaded = false; ///< A file was read.
    std::unique_ptr<ProfilePlots> m_plots;
    std::int64_t m_line = 0; ///< Shown, 0-based.
    ProfileUnit m_unit;
};

} // namespace vireo
