#pragma once

#include "app/DispatchPlan.h"
#include "app/FileCheck.h"
#include "app/RecentFiles.h"
#include "app/ShrunkWindow.h"
#include "app/UnpackBeside.h"
#include "app/ViewerTable.h"
#include "platform/FileAssociation.h"
#include "viewers/controls/CViewerDialog.h"

#include <QTimer>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Ui {
class CViewerDlg;
}

namespace vireo {

/// The program's main window. Started without a file it is a launcher; started with one it opens
/// the viewer for the file, shrinks out of sight meanwhile and ends when the viewer closes. A file
/// opened from the launcher itself (button, recent files, drop) leaves the launcher open.
class CViewerDlg : public CViewerDialog {
    Q_OBJECT

public:
    /// What the dialog takes from the program around it.
    struct Setup {
        ViewerTable viewers;
        std::filesystem::path recentList;      ///< Where the recent files are kept; empty: nowhere.
        std::filesystem::path programFolder;   ///< Where the log goes; empty: cannot be told.
        std::filesystem::path scannerSettings; ///< Where scanner and limits are kept.
        std::shared_ptr<FileAssociation> association; ///< Null: not this program's to choose.
        std::function<DispatchPlan(const std::filesystem::path& file)> plan = PlanDispatch;
        /// Unpacks a packed dump into its own folder, with its own messages; false: there is
        /// nothing to show.
        std::function<bool(const std::filesystem::path& dump)> unpackDump =
            [](const std::filesystem::path& dump) { return UnpackBeside(dump, nullptr); };
    };

    explicit CViewerDlg(Setup setup, QWidget* parent = nullptr);
    ~CViewerDlg() override;

    /// How long the dialog waits, once it is shown, before it opens the file.
    static constexpr int kDispatchMilliseconds = 100;

    /// Takes the file to open when the dialog runs (UTF-8): at most kFileToLoadCharacters of the
    /// text, without double quotes.
    void SetFileToLoad(std::string_view txt);
    const std::string& FileToLoad() const { return m_fileToLoad; }

    /// Initialises the dialog, runs it modally and returns when it has ended.
    int DoModal();

    /// Opens the viewer for a file and comes back to the launcher when it has closed.
    void OpenAndStay(const std::filesystem::path& file);

    /// The icon that stands for the minimised window.
    QIcon OnQueryDragIcon() const { return windowIcon(); }
    /// The size of the window while it is not shrunk.
    QSize NormalSize() const { return m_normalSize; }

protected:
    void OnInitDialog() override;
    void timerEvent(QTimerEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// What becomes of the main dialog when a viewer has closed.
    enum class Afterwards { End, Stay };

    void OpenLog();
    void ShowHeading();
    void ConnectCommands();
    void OnLauncher(std::string_view viewer);
    void AddAssociationCommand();
    void OnAssociation();
    void OnOpen();
    void OnRemoveRecent(const std::filesystem::path& file);
    void OnRecentCheck();
    void CheckRecentFiles();

    void Dispatch(const std::filesystem::path& file, Afterwards afterwards);
    bool OpenPackedDump(const std::filesystem::path& dump);
    bool RunViewer(std::string_view viewer, const std::filesystem::path& input);
    void ComeBack();
    void ShowRecentFiles();
    void ShowScannerChoice();

    Setup m_setup;
    std::unique_ptr<Ui::CViewerDlg> m_ui;
    std::string m_fileToLoad;
    bool m_bFileToLoadCut = false; ///< The name was longer.
    int m_dispatchTimer = 0;
    ShrunkWindow m_window;
    QSize m_normalSize;
    RecentFiles m_recentFiles;
    FileCheck m_recentCheck;
    QTimer m_recentCheckTimer;
    bool m_bRecentCheckRuns = false;
    QAction* m_associationAction = nullptr; ///< Null where there is no such choice.
};

} // namespace vireo
