#pragma once

#include "viewers/controls/CViewerDialog.h"
#include "viewers/noise/NoiseData.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QAbstractButton;
class QLabel;
class QScrollBar;

namespace vireo {

class CNoiseTestControl;

/// What the two noise dialogs have in common: one noise record with its plot, the choice of the
/// plane, and the commands of the menus.
class CNoiseBase_Dialog : public CViewerDialog {
    Q_OBJECT

protected:
    explicit CNoiseBase_Dialog(QWidget* parent);

    /// The widgets that a derived dialog has made; they belong to it. `gray` may be null.
    struct Widgets {
        CNoiseTestControl* plot = nullptr;
        QScrollBar* scrollBar = nullptr;
        QLabel* fileText = nullptr;
        QAbstractButton* red = nullptr;
        QAbstractButton* green = nullptr;
        QAbstractButton* blue = nullptr;
        QAbstractButton* gray = nullptr;
    };
    void SetUpWidgets(const Widgets& widgets);

    void OnInitDialog() override;
    std::filesystem::path ShownFile() const override;
    /// A line that was taken from a scanner is one, too.
    bool HasContent() const override { return m_data.m_iLineLength > 0; }
    std::string_view ShownKind() const override { return "noise"; }
    void ShowLimits(const std::vector<Limit>& limits) override;

    /// Reads a file and shows it. What cannot be read is told and leaves an empty plot.
    void ReadFile(const std::filesystem::path& path);
    bool HasFile() const { return m_bLoaded; }
    const NoiseData& Data() const { return m_data; }
    /// The record, for a dialog whose lines come from elsewhere than a file; ShowRecord comes next.
    NoiseData& Record() { return m_data; }
    /// Empties the record, so that nothing of a file is left in it.
    void ForgetFile();
    /// Shows the record anew. A line of the same length leaves the view where it is.
    void ShowRecord();
    CNoiseTestControl& Plot() const { return *m_widgets.plot; }

    /// Reads a file that the user has chosen, or dropped on the window.
    virtual void LoadFile(const std::filesystem::path& path) { ReadFile(path); }
    void OnLoad();
    void OnSave();
    void OnPrint();

    /// Writes the figures beside the plot: another file or another plane is shown.
    virtual void ShowFigures() = 0;
    /// Writes where the cursor is; nothing when it has left the plot.
    virtual void ShowCursor(std::optional<std::int64_t> pixel) = 0;
    virtual std::vector<std::string> HeaderLines() const = 0;
    virtual const char* DocumentName() const = 0;

private:
    void SetUpMenus();
    void FitPlanes();
    void OnPlane(ShownColour shown);
    void OnPrintPreview();
    void OnExportLine();
    QAbstractButton* PlaneButton(ShownColour shown) const;

    Widgets m_widgets;
    NoiseData m_data;
    bool m_bLoaded = false;
    std::int64_t m_iShownPixels = -1; ///< Of the record that the plot shows; -1: of none.
};

} // namespace vireo
