#pragma once

#include "viewers/controls/CViewerDialog.h"
#include "viewers/controls/ProfilePlots.h"
#include "viewers/controls/ProfileView.h"
#include "viewers/oscilloscope/LineAnimation.h"
#include "viewers/oscilloscope/OscilloscopeChoices.h"
#include "viewers/oscilloscope/OscilloscopeData.h"
#include "viewers/oscilloscope/OscilloscopeFolder.h"

#include <QTimer>

#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

class QAction;
class QRadioButton;

namespace Ui {
class COscilloscope_Dialog;
}

namespace vireo {

class ViewerHost;

/// The "Software Oscilloscope": the raw line signals of a scanner's cameras, as an overview of the
/// line with two detail views under it. A file of many lines is shown line after line.
///
/// It opens on one file, or on a folder that holds the several oscilloscope files of a test run and
/// switches between them. A packed dump is unpacked, and its folder shown. A file of another kind
/// is handed to its own viewer, and the dialog closes.
///
/// Keys: A to H choose a camera, + and - zoom the overview, 0 and Home show its whole line; Space
/// holds the lines, Left, Right, Page Up and Page Down step through them.
class COscilloscope_Dialog : public CViewerDialog {
    Q_OBJECT

public:
    /// `fileOrFolder` is a folder when `bUseHPDirectory` is set. The host opens the viewers of
    /// files of other kinds.
    COscilloscope_Dialog(const std::filesystem::path& fileOrFolder, bool bUseHPDirectory,
        ViewerHost& host, QWidget* parent = nullptr);
    ~COscilloscope_Dialog() override;

    /// Whether the file went to another viewer, which has been closed since, or was a dump that has
    /// not been unpacked: there is nothing to show then, and running the dialog returns at once.
    bool HasHandedOver() const { return m_bHandedOver; }

    int exec() override;
    void setVisible(bool visible) override;

protected:
    void OnInitDialog() override;
    void OnAcceleratorCommand(int command) override;
    std::filesystem::path ShownFile() const override;
    bool IsChosenFile() const override { return !m_bUseHPDirectory; }
    std::string_view ShownKind() const override { return m_data.IsMtf() ? "mtf" : "oscilloscope"; }
    void ShowLimits(const std::vector<Limit>& limits) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    using Command = void (COscilloscope_Dialog::*)();

    // Start.
    void SetUpControls();
    void SetUpCommands();
    void SetUpMenus();

    // Files.
    void ReadFile();
    void LoadFile(const std::filesystem::path& file);
    void ReadFolder();
    void ReadEntry(std::size_t index);
    void HandOver(std::string_view viewer);
    void Close();
    void OpenKitbag();
    void TellMissingItems();
    void TellFailure(OscilloscopeResult result);

    // Display.
    void FitDialogToFile();
    void FitColours(const OscilloscopeChoices& choices);
    void FitCameras(const OscilloscopeChoices& choices);
    void FitDetailModes(const OscilloscopeChoices& choices);
    void ShowFileName();
    void StartAnimation();
    void ShowLine();
    void ShowFocus();
    void ShowCursor(const std::optional<CursorReading>& reading, bool isOverview);
    QRadioButton& CameraButton(int camera) const;
    QRadioButton& ColourButton(ShownColour shown) const;

    // Commands; none does anything before the first paint.
    void OnColour(ShownColour shown);
    void OnCamera(int camera);
    void OnDetail(ProfileMode mode);
    void OnZoomAll();
    void OnZoom(int steps);
    void OnLoad();
    void OnPrint();
    void OnPrintPreview();
    void OnChange();
    void OnShowFocus();
    void OnStep(int lines);
    void OnHold();
    void OnPauseEdited();
    void OnTimer();
    void OnShowHeader();
    void OnExportLine();
    void OnSavePicture();
    bool OnKey(int key);

    void Hold(bool hold);
    void RunTimer();
    std::filesystem::path AskForTarget(
        const QString& title, const QString& filter, const QString& extension);

    std::unique_ptr<Ui::COscilloscope_Dialog> m_ui;
    ViewerHost& m_host;
    std::filesystem::path m_path;
    bool m_bUseHPDirectory;
    bool m_bDrawingReady = false;
    bool m_bHandedOver = false;
    bool m_bLoaded = false; ///< A file was read.
    OscilloscopeData m_data;
    std::unique_ptr<ProfilePlots> m_plots;
    QAction* m_loadAction = nullptr;
    LineAnimation m_animation;
    QTimer m_timer;
    std::vector<OscilloscopeFolderEntry> m_entries;
    std::size_t m_entry = 0;
};

} // namespace vireo
