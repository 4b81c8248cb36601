#include "app/CViewerDlg.h"

#include "app/AssociationCommand.h"
#include "app/CommandLine.h"
#include "app/DumpView.h"
#include "app/LoadPath.h"
#include "app/ProgramLimits.h"
#include "platform/Log.h"
#include "platform/Message.h"
#include "platform/ProgramInfo.h"
#include "platform/Text.h"
#include "resources/StringTable.h"
#include "scanner/ScannerChoice.h"
#include "ui_CViewerDlg.h"
#include "viewers/controls/FileDialogs.h"
#include "viewers/controls/PumpMessages.h"
#include "viewers/controls/QtText.h"

#include <QAction>
#include <QResizeEvent>
#include <QTimerEvent>

#include <utility>

namespace vireo {

namespace {
/// When the recent files are looked for, well behind the first paint, and how often the answer
/// is asked for.
constexpr int kRecentCheckMilliseconds = 100;

constexpr std::string_view kTooLong = "Its path has more than 256 characters, and no more are "
                                      "taken when Vireo is started. Choose the "
                                      "file with Open... or drop it on this window";
} // namespace

CViewerDlg::CViewerDlg(Setup setup, QWidget* parent)
    : CViewerDialog(parent),
      m_setup(std::move(setup)),
      m_ui(std::make_unique<Ui::CViewerDlg>()),
      m_window(*this),
      m_recentFiles(m_setup.recentList)
{
    m_setup.viewers.SetFileKeeper(
        [this](const std::filesystem::path& file) { static_cast<void>(m_recentFiles.Add(file)); });
    m_ui->setupUi(this);
    ShowHeading();
    TakeDroppedFiles([this](const std::filesystem::path& file) { OpenAndStay(file); });
    ConnectCommands();
}

CViewerDlg::~CViewerDlg() = default;

void CViewerDlg::ShowHeading()
{
    m_ui->iconLabel->setPixmap(
        windowIcon().pixmap(m_ui->iconLabel->minimumSize(), devicePixelRatioF()));
    m_ui->titleLabel->setText(QStringFromText(LoadStringResource(StringId::kApplicationTitle)));
    constexpr double kHeadingScale = 1.6;
    QFont heading = font();
    heading.setPointSizeF(heading.pointSizeF() * kHeadingScale);
    heading.setBold(true);
    m_ui->titleLabel->setFont(heading);
}

void CViewerDlg::ConnectCommands()
{
    connect(m_ui->exitButton, &QPushButton::clicked, this, &CViewerDlg::accept);
    connect(m_ui->lightProfileButton, &QPushButton::clicked, this,
        [this] { OnLauncher("CLPF_Dialog"); });
    connect(m_ui->stitchButton, &QPushButton::clicked, this,
        [this] { OnLauncher("CView_Stitch_Dialog"); });
    connect(m_ui->noiseCheckButton, &QPushButton::clicked, this,
        [this] { OnLauncher("CNCTest_Dialog"); });
    connect(m_ui->simulatedCheck, &QCheckBox::clicked, this,
        [this](bool checked) { KeepSimulated(m_setup.scannerSettings, checked); });
    connect(m_ui->openButton, &QPushButton::clicked, this, &CViewerDlg::OnOpen);
    auto* open = new QAction(tr("&Open..."), this);
    open->setShortcut(QKeySequence::Open);
    connect(open, &QAction::triggered, this, &CViewerDlg::OnOpen);
    AddToFileMenu(open);
    connect(m_ui->recentList, &CRecentFilesList::FileChosen, this, &CViewerDlg::OpenAndStay);
    connect(m_ui->recentList, &CRecentFilesList::RemoveChosen, this, &CViewerDlg::OnRemoveRecent);
    connect(&m_recentCheckTimer, &QTimer::timeout, this, &CViewerDlg::OnRecentCheck);
}

void CViewerDlg::AddAssociationCommand()
{
    if (!m_setup.association)
        return;
    m_associationAction =
        MakeAction(tr("Open .con files with &Vireo"), {}, this, &CViewerDlg::OnAssociation);
    m_associationAction->setCheckable(true);
    m_associationAction->setChecked(IsAssociated(*m_setup.association));
    AddToFileMenu(m_associationAction);
}

void CViewerDlg::OnAssociation()
{
    const std::string_view complaint = ToggleAssociation(*m_setup.association);
    m_associationAction->setChecked(IsAssociated(*m_setup.association));
    if (!complaint.empty())
        ShowMessage(complaint, {}, MessageIcon::Information);
}

void CViewerDlg::SetFileToLoad(std::string_view txt)
{
    Log_Msg("void CViewerDlg::SetFileToLoad(char* txt) Load File Name:");
    Log_Msg(Windows1252FromUtf8(txt));
    m_fileToLoad = CopyFileToLoad(txt);
    m_bFileToLoadCut = IsTooLongToLoad(txt);
}

int CViewerDlg::DoModal()
{
    OnInitDialog();
    return exec();
}

void CViewerDlg::OnInitDialog()
{
    OpenLog();
    CViewerDialog::OnInitDialog();
    if (!m_fileToLoad.empty())
        m_dispatchTimer = startTimer(kDispatchMilliseconds);
    setWindowTitle(QStringFromText(LoadStringResource(StringId::kApplicationTitle)));
    UseLimits(std::make_unique<ProgramLimits>(m_setup.scannerSettings));
    AddAssociationCommand();
    ShowRecentFiles();
    ShowScannerChoice();
}

void CViewerDlg::ShowScannerChoice()
{
    m_ui->simulatedCheck->setChecked(ReadScannerChoice(m_setup.scannerSettings).isSimulated);
}

void CViewerDlg::OpenLog()
{
    if (m_setup.programFolder.empty())
        ShowMessage("Error in Get Program Path");
    log_Init("Vireo", ".log", m_setup.programFolder);
}

void CViewerDlg::timerEvent(QTimerEvent* event)
{
    if (m_dispatchTimer == 0 || event->timerId() != m_dispatchTimer) {
        CViewerDialog::timerEvent(event);
        return;
    }
    killTimer(std::exchange(m_dispatchTimer, 0));
    if (m_fileToLoad.empty())
        return;
    Log_Msg("CViewerDlg::Load File Name:");
    Dispatch(LoadPath(m_fileToLoad), Afterwards::End);
}

void CViewerDlg::resizeEvent(QResizeEvent* event)
{
    CViewerDialog::resizeEvent(event);
    if (!m_window.IsShrunk())
        m_normalSize = event->size();
}

void CViewerDlg::OnLauncher(std::string_view viewer)
{
    const auto file = m_fileToLoad.empty() ? std::filesystem::path() : LoadPath(m_fileToLoad);
    const bool isReady = !file.empty() || m_setup.viewers.Prepare(viewer, this);
    // The user may have been asked, and may have chosen the simulated scanner.
    ShowScannerChoice();
    if (!isReady || !RunViewer(viewer, file))
        return;
    m_fileToLoad.clear();
    accept();
}

void CViewerDlg::Dispatch(const std::filesystem::path& file, Afterwards afterwards)
{
    const DispatchPlan plan = m_setup.plan(file);
    if (!plan.refusal.empty()) {
        const bool isCut = afterwards == Afterwards::End && m_bFileToLoadCut;
        TellCannotOpen(file, isCut ? kTooLong : plan.refusal);
        CheckRecentFiles();
        return;
    }
    bool opened = plan.isPackedDump && OpenPackedDump(file);
    for (const std::string_view viewer : plan.viewers)
        opened = RunViewer(viewer, file) || opened;
    if (!opened)
        return;
    if (afterwards == Afterwards::End)
        accept();
    else
        ShowRecentFiles();
}

bool CViewerDlg::OpenPackedDump(const std::filesystem::path& dump)
{
    m_window.Shrink();
    PumpMessages();
    const bool unpacked = m_setup.unpackDump(dump);
    if (!unpacked) {
        ComeBack();
        return false;
    }
    const ProgramInfo info = OwnProgramInfo();
    static_cast<void>(m_recentFiles.Add(dump));
    Log_Msg_Txt(LoadStringResource(StringId::kVersion), info.fileVersion);
    Log_Msg_Txt(LoadStringResource(StringId::kBuild), info.privateBuild);
    const DumpView view = ViewOfUnpackedDump(dump);
    return RunViewer(view.viewer, view.input);
}

bool CViewerDlg::RunViewer(std::string_view viewer, const std::filesystem::path& input)
{
    if (!m_setup.viewers.Has(viewer)) {
        ComeBack();
        ViewerTable::ShowNoViewer(viewer, input);
        return false;
    }
    // The two noise dialogs open in front of the main dialog, which keeps its file name too.
    if (viewer == "CNoiseTest_SM_Dialog" || viewer == "CNCTest_Dialog")
        return m_setup.viewers.OpenViewer(viewer, input, this);
    m_window.Shrink();
    PumpMessages();
    const bool opened = m_setup.viewers.OpenViewer(viewer, input, this);
    m_fileToLoad.clear();
    ComeBack();
    return opened;
}

void CViewerDlg::ComeBack()
{
    m_window.Restore();
    PumpMessages();
}

void CViewerDlg::OpenAndStay(const std::filesystem::path& file)
{
    Dispatch(file, Afterwards::Stay);
}

void CViewerDlg::OnOpen()
{
    const FileQuestion question{
        tr("Open"), tr("Test results (*.con);;TIFF pictures (*.tif *.tiff);;All files (*)")};
    const auto& files = m_recentFiles.Files();
    const auto file =
        AskForFileToOpen(this, question, files.empty() ? std::filesystem::path() : files.front());
    if (!file.empty())
        OpenAndStay(file);
}

void CViewerDlg::OnRemoveRecent(const std::filesystem::path& file)
{
    static_cast<void>(m_recentFiles.Remove(file));
    m_ui->recentList->SetFiles(m_recentFiles.Files());
}

void CViewerDlg::ShowRecentFiles()
{
    static_cast<void>(m_recentFiles.Load());
    m_ui->recentList->SetFiles(m_recentFiles.Files());
    CheckRecentFiles();
}

void CViewerDlg::CheckRecentFiles()
{
    m_bRecentCheckRuns = false;
    m_recentCheckTimer.start(kRecentCheckMilliseconds);
}

void CViewerDlg::OnRecentCheck()
{
    if (!std::exchange(m_bRecentCheckRuns, true)) {
        m_recentCheck.Start(m_recentFiles.Files());
        return;
    }
    if (const auto missing = m_recentCheck.TakeMissing()) {
        m_recentCheckTimer.stop();
        m_ui->recentList->MarkMissing(*missing);
    }
}

} // namespace vireo
