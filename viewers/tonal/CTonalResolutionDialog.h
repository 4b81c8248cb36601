#pragma once

#include "viewers/controls/CViewerDialog.h"
#include "viewers/tonal/TonalResolutionData.h"
#include "viewers/tonal/TonalView.h"

#include <filesystem>
#include <memory>
#include <string>

class QCheckBox;
class QRadioButton;

namespace Ui {
class CTonalResolutionDialog;
}

namespace vireo {

class CScrollTextControl;

/// The "Tonal Resolution" viewer: how linear and how noisy a scanner is and how far into the dark
/// it sees, by the gray patches of a target; as three plots, or as report and table.
///
/// Opening a file may rewrite or delete it, see OpenTonalFile; a notice above the plot then says
/// so.
class CTonalResolutionDialog : public CViewerDialog {
    Q_OBJECT

public:
    /// Shows a file; an empty path shows an empty plot.
    explicit CTonalResolutionDialog(const std::filesystem::path& file, QWidget* parent = nullptr);
    ~CTonalResolutionDialog() override;

protected:
    void OnInitDialog() override;
    void OnAcceleratorCommand(int command) override;
    std::filesystem::path ShownFile() const override;
    bool HasHeader() const override { return !m_data.FileText().empty(); }
    std::string_view ShownKind() const override { return "tonal-resolution"; }
    void ShowLimits(const std::vector<Limit>& limits) override;

private:
    void SetUpControls();
    void SetUpMenus();
    QRadioButton& ViewButton(TonalView view) const;
    QCheckBox& FlagCheck(TonalFlag flag) const;

    void ReadFile(const std::filesystem::path& path);
    void ShowFile();
    /// Tells something beside the plot until the next file; an empty text takes it away.
    void ShowNotice(const std::string& utf8);

    void OnView(TonalView view);
    void OnShowReport(bool shown);
    void OnLoad();
    void OnSave();
    void OnCopy();
    void OnPrint();
    void OnPrintPreview();
    void OnExport();
    void OnShowHeader();

    bool IsReportShown() const;
    /// Report and table on paper, through a control of its own that nobody sees.
    std::unique_ptr<CScrollTextControl> PrintedReport();

    std::unique_ptr<Ui::CTonalResolutionDialog> m_ui;
    TonalResolutionData m_data;
};

} // namespace vireo
