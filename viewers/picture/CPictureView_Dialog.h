#pragma once

#include "imagefile/ImageResult.h"
#include "viewers/controls/CViewerDialog.h"
#include "viewers/controls/PictureMark.h"
#include "viewers/controls/PictureView.h"
#include "viewers/picture/PictureForms.h"
#include "viewers/picture/PictureLoader.h"

#include <QTimer>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace Ui {
class CPictureView_Dialog;
}

namespace vireo {

/// The "Picture View": the pages of a TIFF file, of any size. A picture is loaded while it is
/// looked at already; what a damaged file still gives is shown.
///
/// Another viewer may give it a picture with marks, and a pixel to begin at.
class CPictureView_Dialog : public CViewerDialog {
    Q_OBJECT

public:
    /// Shows the first page of a file; an empty path shows an empty view.
    explicit CPictureView_Dialog(const std::filesystem::path& file, QWidget* parent = nullptr);
    explicit CPictureView_Dialog(const MarkedPicture& picture, QWidget* parent = nullptr);
    ~CPictureView_Dialog() override;

    const PictureLoader& Loader() const { return m_loader; }

protected:
    void OnInitDialog() override;
    void OnAcceleratorCommand(int command) override;
    std::filesystem::path ShownFile() const override;
    std::string_view ShownKind() const override { return "tiff"; }

private:
    using Command = void (CPictureView_Dialog::*)();

    // Start.
    void SetUpControls();
    void SetUpCommands();
    void SetUpMenus();

    // Files.
    void ReadFile(const std::filesystem::path& path, std::uint32_t page);
    /// Puts a picture, which opening came to this, in place of the one before.
    void ShowPicture(std::unique_ptr<PictureData> picture, ImageResult result);
    void FollowLoading();
    void OnLoaded();
    void Tell(ImageResult result);
    void TellLater(const std::function<void()>& tell);

    // Display.
    const PictureData& Picture() const { return m_loader.Picture(); }
    void ShowFacts();
    void ShowPages();
    void ShowLoading(bool isLoading);
    void ShowZoom();
    void ShowPixel(const std::optional<PicturePixel>& pixel);
    void ShowPalette(const std::optional<PicturePixel>& pixel);

    std::optional<PictureForm> AskForForm();
    void WaitFor(const QString& title, const QString& text,
        const std::function<std::string(WorkProgress&)>& work);

    // Commands.
    void OnLoad();
    void LoadFile(const std::filesystem::path& file);
    void OnSave();
    void OnPrint();
    void OnPrintPreview();
    void OnExportRow();
    void OnCancel();
    void OnPage(int page);
    void OnNextPage();
    void OnPreviousPage();

    std::unique_ptr<Ui::CPictureView_Dialog> m_ui;
    PictureLoader m_loader;
    QTimer m_loadingTimer;
    QAction* m_saveAs = nullptr;
    QAction* m_nextPage = nullptr;
    QAction* m_previousPage = nullptr;
};

} // namespace vireo
