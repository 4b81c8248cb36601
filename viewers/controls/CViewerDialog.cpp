#include "viewers/controls/CViewerDialog.h"

#include "platform/Message.h"
#include "platform/Text.h"
#include "resources/ControlIds.h"
#include "resources/StringTable.h"
#include "viewers/controls/CAboutDlg.h"
#include "viewers/controls/CHeaderText_Dialog.h"
#include "viewers/controls/CLimitsWatch.h"
#include "viewers/controls/FileDialogs.h"
#include "viewers/controls/Placement.h"
#include "viewers/controls/QtText.h"
#include "viewers/controls/Resources.h"

#include <QDragEnterEvent>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPainter>
#include <QShowEvent>
#include <QTimer>
#include <QToolButton>
#include <QUrl>

#include <optional>
#include <system_error>
#include <utility>

#ifdef _WIN32
#include <windows.h>
#endif

namespace vireo {

CViewerDialog::CViewerDialog(QWidget* parent)
    : QDialog(parent,
        Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint
            | Qt::WindowCloseButtonHint),
      m_menuBar(new QMenuBar(this)),
      m_fileMenu(m_menuBar->addMenu(QStringLiteral("&File"))),
      m_helpMenu(m_menuBar->addMenu(QStringLiteral("&Help")))
{
    // One icon of many sizes: the system takes a big and a small one from it.
    setWindowIcon(ApplicationIcon());
    m_fileMenuEnd = m_fileMenu->addSeparator();
    m_fileMenu->addAction(
        QStringLiteral("E&xit"), QKeySequence(QKeySequence::Close), this, &QDialog::reject);
}

CViewerDialog::~CViewerDialog()
{
    Report();
}

void CViewerDialog::OnInitDialog()
{
    AddAboutCommand();
    if (layout())
        layout()->setMenuBar(m_menuBar);
    LoadAcceleratorTable(kAcceleratorTable);
}

#ifdef _WIN32
namespace {

void AddAboutToSystemMenu(HWND window)
{
    const QString text = QStringFromText(LoadStringResource(StringId::kAboutCommand));
    const HMENU systemMenu = GetSystemMenu(window, FALSE);
    if (text.isEmpty() || systemMenu == nullptr)
        return;
    AppendMenuW(systemMenu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(systemMenu, MF_STRING, CommandId::kAbout, text.toStdWString().c_str());
}

/// A window that another one owns has no button on the task bar by itself, and would become a stub
/// on the desktop when it is minimised.
void PutOnTaskBar(HWND window)
{
    SetWindowLongPtrW(
        window, GWL_EXSTYLE, GetWindowLongPtrW(window, GWL_EXSTYLE) | WS_EX_APPWINDOW);
}

} // namespace
#endif

void CViewerDialog::AddAboutCommand()
{
    const std::string_view text = LoadStringResource(StringId::kAboutCommand);
    if (text.empty())
        return;
    m_helpMenu->addAction(
        QStringFromText(text), QKeySequence(Qt::Key_F1), this, &CViewerDialog::OnAbout);
}

bool CViewerDialog::event(QEvent* event)
{
    const bool isHandled = QDialog::event(event);
#ifdef _WIN32
    // A window that the toolkit makes anew has a new system menu.
    if (event->type() == QEvent::WinIdChange && internalWinId() != 0) {
        AddAboutToSystemMenu(reinterpret_cast<HWND>(internalWinId()));
        PutOnTaskBar(reinterpret_cast<HWND>(internalWinId()));
    }
#endif
    return isHandled;
}

bool CViewerDialog::nativeEvent(const QByteArray& eventType, void* message, qintptr* result)
{
#ifdef _WIN32
    const auto* native = static_cast<const MSG*>(message);
    if (native->message == WM_SYSCOMMAND
        && (native->wParam & CommandId::kSystemCommandMask) == CommandId::kAbout) {
        // The system waits for the command's end, and the about box would keep it waiting.
        QTimer::singleShot(0, this, [this] { OnAbout(); });
        *result = 0;
        return true;
    }
#endif
    return QDialog::nativeEvent(eventType, message, result);
}

QMenu& CViewerDialog::ViewMenu()
{
    if (!m_viewMenu) {
        m_viewMenu = new QMenu(QStringLiteral("&View"), this);
        m_menuBar->insertMenu(m_helpMenu->menuAction(), m_viewMenu);
    }
    return *m_viewMenu;
}

void CViewerDialog::AddToFileMenu(QAction* action)
{
    m_fileMenu->insertAction(m_fileMenuEnd, action);
}

void CViewerDialog::SetMenuTitles(const QString& view, const QString& help)
{
    ViewMenu().setTitle(view);
    m_helpMenu->setTitle(help);
}

QAction* CViewerDialog::NeedsContent(QAction* command)
{
    m_needContent.push_back(command);
    command->setEnabled(HasContent());
    return command;
}

void CViewerDialog::NeedsContent(QWidget* button)
{
    m_needContent.push_back(button);
    button->setEnabled(HasContent());
}

void CViewerDialog::FitCommands()
{
    for (QObject* command : m_needContent)
        command->setProperty("enabled", HasContent());
    if (QAction* const header = AcceleratorAction(CommandId::kShowHeader))
        header->setEnabled(HasHeader());
}

void CViewerDialog::LoadAcceleratorTable(const char* name)
{
    const auto table = LoadAcceleratorResource(QLatin1String(name));
    if (!table) {
        ShowMessage("Load Accel Failed");
        return;
    }
    for (const auto& [keys, command] : *table) {
        QAction*& action = m_accelerators[command];
        if (action) {
            action->setShortcuts(action->shortcuts() << keys);
            continue;
        }
        action = new QAction(this);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this,
            [this, number = command] { OnAcceleratorCommand(number); });
        addAction(action);
    }
}

QAction* CViewerDialog::AcceleratorAction(int command) const
{
    const auto found = m_accelerators.find(command);
    return found == m_accelerators.end() ? nullptr : found->second;
}

void CViewerDialog::OnAcceleratorCommand(int command)
{
    if (command == CommandId::kShowHeader && !ShownFile().empty())
        ShowFileHeader(ShownFile(), this);
}

void CViewerDialog::AddHeaderToFileMenu()
{
    if (QAction* const header = AcceleratorAction(CommandId::kShowHeader)) {
        header->setText(tr("Show &Header"));
        header->setEnabled(HasHeader());
        AddToFileMenu(header);
    }
}

namespace {

/// The one file that is dragged; nothing for anything else.
std::optional<std::filesystem::path> DroppedFile(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    if (urls.size() != 1 || !urls.front().isLocalFile())
        return std::nullopt;
    return PathFromQString(urls.front().toLocalFile());
}

} // namespace

void CViewerDialog::TakeDroppedFiles(std::function<void(const std::filesystem::path&)> take)
{
    m_takeDropped = std::move(take);
    setAcceptDrops(true);
}

void CViewerDialog::dragEnterEvent(QDragEnterEvent* event)
{
    if (m_takeDropped && DroppedFile(*event->mimeData()))
        event->acceptProposedAction();
}

void CViewerDialog::dropEvent(QDropEvent* event)
{
    const auto file = DroppedFile(*event->mimeData());
    if (!m_takeDropped || !file)
        return;
    event->acceptProposedAction();
    // The program that the file comes from waits for the end of the drop, not of the reading.
    QTimer::singleShot(0, this, [this, file = *file] { m_takeDropped(file); });
}

void CViewerDialog::UseLimits(std::unique_ptr<ViewerLimits> limits)
{
    m_limits = new CLimitsWatch(std::move(limits), this);
    m_menuBar->setCornerWidget(&m_limits->Badge());
    AddToFileMenu(&m_limits->ChooseAction());
    AddToFileMenu(&m_limits->ClearAction());
    connect(m_limits, &CLimitsWatch::Answered, this, [this] {
        // The badge comes and goes, and the menu bar does not see it by itself.
        m_menuBar->setCornerWidget(&m_limits->Badge());
        ShowLimits(m_limits->Answer().limits);
    });
    ShownFileChanged();
}

void CViewerDialog::ShownFileChanged(std::int64_t line)
{
    const std::filesystem::path shown = ShownFile();
    if (!shown.empty()) {
        m_refusedFile.clear();
        m_refusal.clear();
    }
    FitCommands();
    ReportShownFile();
    if (m_limits)
        m_limits->SetQuestion(
            {shown.empty() ? m_refusedFile : shown, line, ShownKind(), m_refusal});
}

void CViewerDialog::ReportFiles(std::function<void(const std::filesystem::path& file)> report)
{
    m_report = std::move(report);
    ReportShownFile();
}

void CViewerDialog::ReportShownFile()
{
    const std::filesystem::path shown = ShownFile();
    if (!m_report || shown.empty() || shown == m_reportedFile || !IsChosenFile())
        return;
    m_reportedFile = shown;
    m_isReported = false;
    if (m_isPainted)
        Report();
}

void CViewerDialog::Report()
{
    if (!std::exchange(m_isReported, true))
        m_report(m_reportedFile);
}

void CViewerDialog::NoteRefusal(const std::filesystem::path& file, const std::string& reason)
{
    m_refusedFile = file;
    m_refusal = reason;
    ShownFileChanged();
}

namespace {
/// Of a file without a byte there is no use in telling what kind it is not.
constexpr const char* kEmptyFile = "The file is empty";
} // namespace

void CViewerDialog::RefuseFile(const std::filesystem::path& file, const std::string& reason)
{
    std::error_code error;
    const bool isEmpty = std::filesystem::file_size(file, error) == 0 && !error;
    const std::string told = isEmpty ? kEmptyFile : Utf8FromWindows1252(reason);
    NoteRefusal(file, told);
    TellCannotOpen(file, told);
}

void CViewerDialog::OnAbout()
{
    CAboutDlg(this).exec();
}

void CViewerDialog::showEvent(QShowEvent* event)
{
    if (!event->spontaneous() && !testAttribute(Qt::WA_Moved))
        CentreOnDesktop(*this);
    QDialog::showEvent(event);
}

void CViewerDialog::paintEvent(QPaintEvent* event)
{
    QDialog::paintEvent(event);
    if (!std::exchange(m_isPainted, true))
        QTimer::singleShot(0, this, &CViewerDialog::Report);
    if (!isMinimized())
        return;
    // Systems that show a minimised window at all show its icon.
    QPainter painter(this);
    windowIcon().paint(&painter, rect());
}

} // namespace vireo
