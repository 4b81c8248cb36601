#pragma once

#include <QAction>
#include <QDialog>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QMenu;
class QMenuBar;

namespace vireo {

class CLimitsWatch;
class ViewerLimits;
struct Limit;

/// What all viewer dialogs have in common: icon, a window that can be maximised and minimised, a
/// slim menu bar, "&About Vireo..." and the accelerator table.
///
/// A derived class makes its controls and layout in its constructor and then calls OnInitDialog(),
/// which adds the rest.
class CViewerDialog : public QDialog {
    Q_OBJECT

public:
    explicit CViewerDialog(QWidget* parent = nullptr);
    ~CViewerDialog() override;

    /// Has the figures of every file on view checked by the user's limits from now on: a badge at
    /// the end of the menu bar shows the verdict, and the file menu offers to choose limits.
    void UseLimits(std::unique_ptr<ViewerLimits> limits);

    /// Reports every file that comes on view from now on, and the one that is: to be listed with
    /// the files opened last. What that takes nobody waits for: the first report comes after the
    /// window has been painted, or at its end.
    void ReportFiles(std::function<void(const std::filesystem::path& file)> report);

    /// The name of the accelerator table of all viewers.
    static constexpr const char* kAcceleratorTable = "IDR_ACCELERATOR_VIREO";

protected:
    /// Adds "&About Vireo..." to the menu bar's help menu (the system menu, where there is one, has
    /// it from the beginning); puts the menu bar above the dialog's layout; loads the accelerator
    /// table. Once only.
    virtual void OnInitDialog();

    /// Menus that a dialog may add its actions to. They appear in this order, and the view menu
    /// only when somebody asks for it. The file menu ends with "E&xit": use AddToFileMenu.
    QMenu& ViewMenu();
    void AddToFileMenu(QAction* action);
    /// For letters that the dialog's buttons have.
    void SetMenuTitles(const QString& view, const QString& help);

    /// Offers a command only while there is something on view that it can work on.
    QAction* NeedsContent(QAction* command);
    void NeedsContent(QWidget* button);
    virtual bool HasContent() const { return !ShownFile().empty(); }
    virtual bool HasHeader() const { return !ShownFile().empty(); }
    /// Offers the commands that can do something now; needed where the content changes without
    /// another file being shown.
    void FitCommands();

    /// An action of this dialog with keys (or none), to be put into a menu, which calls a member
    /// function of the receiver, or a function object.
    template <typename Receiver, typename Run>
    QAction* MakeAction(
        const QString& text, const QKeySequence& keys, Receiver* receiver, const Run& run)
    {
        auto* const action = new QAction(text, this);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, receiver, run);
        return action;
    }

    /// Puts such an action into the file menu that works on what is on view.
    template <typename Receiver, typename Run>
    void AddContentCommand(
        const QString& text, const QKeySequence& keys, Receiver* receiver, const Run& run)
    {
        AddToFileMenu(NeedsContent(MakeAction(text, keys, receiver, run)));
    }

    /// Loads a table and applies it to the keys of this dialog from now on. A missing table gives
    /// the message "Load Accel Failed", and the dialog goes on without.
    void LoadAcceleratorTable(const char* name);
    /// The action behind an accelerator, to be given a text and put into a menu, where it shows its
    /// keys; null for a command that no accelerator gives.
    QAction* AcceleratorAction(int command) const;

    /// A command of the accelerator table, or of the action behind it. This class shows the header
    /// of ShownFile().
    virtual void OnAcceleratorCommand(int command);

    /// The file on view, whose header can be shown; empty for none, also where one was refused.
    virtual std::filesystem::path ShownFile() const { return {}; }
    /// As what that file has been read, as the command line writes it; empty: as what it says.
    virtual std::string_view ShownKind() const { return {}; }
    /// Puts "Show &Header" into the file menu.
    void AddHeaderToFileMenu();

    /// Takes a single file that is dropped on the window, once the program that it comes from has
    /// been let go.
    void TakeDroppedFiles(std::function<void(const std::filesystem::path& file)> take);

    /// The user has chosen the file on view by itself, not as one of a set.
    virtual bool IsChosenFile() const { return true; }

    /// Another file is on view, or another line (0-based) of it: its figures are to be checked.
    void ShownFileChanged(std::int64_t line = 0);
    /// A file could not be read: tells so. Where no other file stays on view, the verdict says it
    /// too. `reason` is 8-bit text.
    void RefuseFile(const std::filesystem::path& file, const std::string& reason);
    /// The same for a dialog that tells it in its own way; `reason` is UTF-8.
    void NoteRefusal(const std::filesystem::path& file, const std::string& reason);
    /// Marks the limits that hold for the file on view, none when nobody has chosen any.
    virtual void ShowLimits(const std::vector<Limit>&) { }

    /// Shows the about box, modally.
    virtual void OnAbout();

    /// Centres the dialog on the desktop when it first appears, unless it has been moved: the
    /// window that opens it may have shrunk into a corner.
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool event(QEvent* event) override;
    bool nativeEvent(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    void AddAboutCommand();
    void ReportShownFile();
    void Report();

    QMenuBar* m_menuBar;
    QMenu* m_fileMenu;
    QMenu* m_viewMenu = nullptr;
    QMenu* m_helpMenu;
    CLimitsWatch* m_limits = nullptr;    ///< Null until limits are used.
    std::filesystem::path m_refusedFile; ///< Empty while a file is on view.
    std::string m_refusal;               ///< Why, UTF-8.
    QAction* m_fileMenuEnd = nullptr;    ///< What the dialog's own actions stand above.
    std::map<int, QAction*> m_accelerators;
    std::vector<QObject*> m_needContent; ///< Actions and widgets.
    std::function<void(const std::filesystem::path&)> m_report;
    std::filesystem::path m_reportedFile;
    bool m_isReported = true;
    bool m_isPainted = false;
    std::function<void(const std::filesystem::path&)> m_takeDropped;
};

} // namespace vireo
