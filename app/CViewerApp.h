#pragma once

#include "app/CViewerDlg.h"

#include <QPointer>

#include <string>

namespace vireo {

/// The application object: runs the main dialog on the file that the command line names.
class CViewerApp {
public:
    /// `commandLine` is the raw text behind the program's name (UTF-8).
    CViewerApp(std::string commandLine, CViewerDlg::Setup setup);

    /// Builds the main dialog, hands it the file, runs it modally and destroys it. Always false:
    /// with the main dialog the program ends.
    bool InitInstance();

    /// The main dialog while it lives.
    CViewerDlg* MainWindow() const { return m_ptrMainWindow; }

private:
    void SetFileToLoad(CViewerDlg& dialog) const;

    std::string m_commandLine;
    CViewerDlg::Setup m_setup;
    QPointer<CViewerDlg> m_ptrMainWindow;
};

} // namespace vireo
