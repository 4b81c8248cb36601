#include "app/ViewerProgram.h"

#include "app/CViewerApp.h"
#include "app/ProgramCommandLine.h"
#include "platform/KnownFolders.h"
#include "platform/Message.h"
#include "scanner/ScannerChoice.h"
#include "viewers/controls/QtMessageSink.h"

#include <QApplication>

#include <utility>

namespace vireo {

int RunViewerProgram(int argc, char** argv)
{
    std::string commandLine = ProgramCommandLine(argc, argv);
    // No switch is anybody's, not even the toolkit's: whatever the line holds is one path.
    int nameOnly = 1;
    const QApplication application(nameOnly, argv);
    QGuiApplication::setDesktopFileName("vireo");
    QtMessageSink messageBoxes;
    SetMessageSink(&messageBoxes);

    CViewerDlg::Setup setup;
    setup.viewers = ProgramViewers();
    const auto stateFolder = StateFolder();
    if (!stateFolder.empty())
        setup.recentList = stateFolder / "recent-files.txt";
    setup.scannerSettings = ScannerSettingsFile();
    setup.programFolder = ProgramFolder();
    setup.association = UserFileAssociation();
    CViewerApp app(std::move(commandLine), std::move(setup));
    app.InitInstance();
    SetMessageSink(nullptr);
    return 0;
}

} // namespace vireo
