#pragma once

#include "scanner/LineAcquisition.h"
#include "viewers/controls/CViewerDialog.h"
#include "viewers/controls/ProfileLine.h"
#include "viewers/controls/ProfileView.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QSpinBox;

namespace Ui {
class CLPF_Dialog;
}

namespace vireo {

class CLPFControle;
class CLiveScanner;

/// The live light profile: the newest line of a connected scanner as an overview and two details,
/// the average of several, the lowest and highest values, and the gains, offsets and stitch values
/// of its cameras.
class CLPF_Dialog : public CViewerDialog {
    Q_OBJECT

public:
    /// Shows the lines of an open scanner, from the start on.
    explicit CLPF_Dialog(OpenScanner scanner, QWidget* parent = nullptr);
    ~CLPF_Dialog() override;

    /// The line on view.
    const ProfileLine& Line() const { return m_line; }

protected:
    void OnInitDialog() override;

private:
    void SetUpPlots();
    void SetUpCommands();
    void SetUpColours();
    void SetUpCameras();
    void SetUpSettings();
    void SetUpSpin(QSpinBox& spin, ScannerSetting setting);

    void OnLine();
    void OnValues();
    void OnColour(ShownColour shown);
    void OnDetail();
    void OnSave();
    void OnPrint();
    void OnPrintPreview();
    void OnCursor(const std::optional<CursorReading>& reading);

    /// Fills the line of the plots from the newest, and draws.
    void ShowLine();
    void ShowNote();
    void ShowValue(QSpinBox& spin, ScannerSetting setting);
    SettingPlace PlaceOf(ScannerSetting setting) const;
    int Camera() const;
    std::vector<std::string> HeaderLines() const;

    std::unique_ptr<Ui::CLPF_Dialog> m_ui;
    std::unique_ptr<CLiveScanner> m_scanner;
    std::vector<CLPFControle*> m_plots; ///< Overview, left, right.
    ProfileLine m_line;
    ShownColour m_shown = ShownColour::Green;
    std::optional<CursorReading> m_cursor; ///< In whichever plot the pointer is.
};

} // namespace vireo
