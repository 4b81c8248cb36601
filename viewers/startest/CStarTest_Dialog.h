#pragma once

#include "viewers/controls/CViewerDialog.h"
#include "viewers/startest/StarTestData.h"

#include <filesystem>
#include <memory>

namespace Ui {
class CStarTest_Dialog;
}

namespace vireo {

class ViewerHost;

/// The star test viewer: the curves of one sweep at a time, chosen from the list of all sweeps.
class CStarTest_Dialog : public CViewerDialog {
    Q_OBJECT

public:
    /// Shows a file as soon as the dialog is on the screen; an empty path shows an empty plot.
    CStarTest_Dialog(
        const std::filesystem::path& file, ViewerHost& host, QWidget* parent = nullptr);
    ~CStarTest_Dialog() override;

protected:
    void OnInitDialog() override;
    std::filesystem::path ShownFile() const override { return m_data.Path(); }
    std::string_view ShownKind() const override { return "startest"; }
    void ShowLimits(const std::vector<Limit>& limits) override;

private:
    void SetUpCommands();
    void SetUpMenus();
    void ReadFile(const std::filesystem::path& path);
    void ShowData();
    void ShowSweep();
    void ShowScale();
    void PrepareToPrint();

    void OnTimer();
    void OnLoad();
    void OnPrint();
    void OnPrintPreview();
    void OnPicture();
    void OnExportSweep();
    void OnScaleEdited();
    void OnResetScale();
    void OnShowView(std::size_t view);

    std::unique_ptr<Ui::CStarTest_Dialog> m_ui;
    std::filesystem::path m_fileToRead;
    ViewerHost& m_host;
    StarTestData m_data;
};

} // namespace vireo
