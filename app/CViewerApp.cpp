#include "app/CViewerApp.h"

#include "app/CommandLine.h"
#include "platform/Log.h"
#include "platform/Path.h"
#include "platform/Text.h"

#include <string_view>
#include <system_error>
#include <utility>

namespace vireo {

namespace {
bool IsExistingPath(std::string_view name)
{
    std::error_code error;
    return std::filesystem::exists(PathFromUtf8(name), error);
}
} // namespace

CViewerApp::CViewerApp(std::string commandLine, CViewerDlg::Setup setup)
    : m_commandLine(std::move(commandLine)),
      m_setup(std::move(setup))
{
}

bool CViewerApp::InitInstance()
{
    CViewerDlg dialog(m_setup);
    m_ptrMainWindow = &dialog;
    if (!m_commandLine.empty())
        SetFileToLoad(dialog);
    dialog.DoModal();
    return false;
}

void CViewerApp::SetFileToLoad(CViewerDlg& dialog) const
{
    Log_Msg("Command Line Start");
    Log_Msg(Windows1252FromUtf8(m_commandLine));
    Log_Msg("Command Line End");
    dialog.SetFileToLoad(FileToLoad(m_commandLine, IsExistingPath));
}

} // namespace vireo
