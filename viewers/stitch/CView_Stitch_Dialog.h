#pragma once

#include "viewers/controls/CPicture_Control.h"
#include "viewers/controls/CViewerDialog.h"
#include "viewers/stitch/StitchData.h"

#include <filesystem>
#include <memory>
#include <optional>

namespace Ui {
class CView_Stitch_Dialog;
}

namespace vireo {

/// The "View Stitching File" viewer: the picture of a stitch test, zoomed with the mouse and moved
/// with the scroll bars.
class CView_Stitch_Dialog : public CViewerDialog {
    Q_OBJECT

public:
    /// Reads a file; with an empty path, asks for one first.
    explicit CView_Stitch_Dialog(const std::filesystem::path& file, QWidget* parent = nullptr);
    ~CView_Stitch_Dialog() override;

    /// Whether a file was read. Without one there is nothing to show, and the dialog is not to be
    /// opened.
    bool HasPicture() const { return m_data.Picture() != nullptr; }
    const StitchData& Data() const { return m_data; }

protected:
    void OnInitDialog() override;
    std::filesystem::path ShownFile() const override { return m_data.Path(); }
    std::string_view ShownKind() const override { return "stitch"; }

private:
    void SetUpControls();
    void SetUpMenus();
    bool ReadFile(const std::filesystem::path& path);
    void ShowFile();
    bool OnLoad();
    void OnZoomOneToOne();
    void OnPrint();
    void OnPrintPreview();
    void OnExportColumns();
    void OnPointer(std::optional<PicturePixel> pixel);
    void OnView();
    void OnBuild();

    std::unique_ptr<Ui::CView_Stitch_Dialog> m_ui;
    StitchData m_data;
};

} // namespace vireo
