#include "app/CViewerApp.h"
#include "app/ProgramCommandLine.h"
#include "platform/KnownFolders.h"
#include "platform/Message.h"
#include "scanner/ScannerChoice.h"
#include "viewers/controls/QtMessageSink.h"

#include <QApplication>

#include <utility>

int main(int argc, char** argv)
{
    std::string commandLine = vireo::ProgramCommandLine(argc, argv);
    // No switch is anybody's, not even the toolkit's: whatever the line holds is one path.
    int nameOnly = 1;
    const QApplication application(nameOnly, argv);
    QGuiApplication::setDesktopFileName("vireo");
    vireo::QtMessageSink messageBoxes;
    vireo::SetMessageSink(&messageBoxes);

    vireo::CViewerDlg::Setup setup;
    setup.viewers = vireo::ProgramViewers();
    const auto stateFolder = vireo::StateFolder();
    if (!stateFolder.empty())
        setup.recentList = stateFolder / "recent-files.txt";
    setup.scannerSettings = vireo::ScannerSettingsFile();
    setup.programFolder = vireo::ProgramFolder();
    vireo::CViewerApp app(std::move(commandLine), std::move(setup));
    app.InitInstance();
    vireo::SetMessageSink(nullptr);
    return 0;
}
