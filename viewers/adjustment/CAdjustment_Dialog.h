#pragma once

#include "viewers/adjustment/AdjustmentData.h"
#include "viewers/controls/CViewerDialog.h"
#include "viewers/controls/PictureView.h"
#include "viewers/controls/ProfileLine.h"
#include "viewers/controls/ProfileView.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>

namespace Ui {
class CAdjustment_Dialog;
}

namespace vireo {

struct AdjustmentPage;

/// What the viewers of the adjustment tests have in common: the keys of the header in a table, and
/// beside it the data as a profile or as a picture, or why they are neither.
class CAdjustment_Dialog : public CViewerDialog {
    Q_OBJECT

public:
    ~CAdjustment_Dialog() override;

    const AdjustmentData& Data() const { return m_data; }

protected:
    /// Shows a file of a kind; an empty path shows an empty table.
    CAdjustment_Dialog(AdjustmentKind kind, const std::filesystem::path& file, QWidget* parent);

    void OnInitDialog() override;
    std::filesystem::path ShownFile() const override;
    std::string_view ShownKind() const override;

private:
    void SetUpControls();
    void SetUpMenus();
    void ReadFile(const std::filesystem::path& path);
    void ShowFile();
    void ShowLine();
    void ShowPixel(std::optional<PicturePixel> pixel);
    std::int64_t LineToExport() const;
    AdjustmentPage Page() const;

    void OnZoom(int steps);
    void OnZoomAll();
    void OnLoad();
    void OnPrint();
    void OnPrintPreview();
    void OnExportHeader();
    void OnExportLine();
    std::filesystem::path AskForTable(const QString& title);

    std::unique_ptr<Ui::CAdjustment_Dialog> m_ui;
    AdjustmentKind m_kind;
    AdjustmentData m_data;
    bool m_bLoaded = false; ///< A file was read.
    ProfileLine m_line;
    std::int64_t m_iLine = 0; ///< Shown of a profile, 0-based.
    ProfileUnit m_unit;
    QAction* m_exportLine = nullptr;
};

} // namespace vireo
