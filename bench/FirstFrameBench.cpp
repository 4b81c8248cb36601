#include "app/CViewerDlg.h"
#include "app/FileKind.h"
#include "app/ViewerTable.h"
#include "bench/BenchCommand.h"
#include "figures/Json.h"
#include "figures/Subject.h"
#include "platform/KnownFolders.h"
#include "platform/Message.h"
#include "platform/Path.h"
#include "platform/ProcessInfo.h"
#include "platform/Text.h"
#include "viewers/controls/OffscreenPlatform.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <filesystem>
#include <optional>
#include <random>
#include <string>
#include <system_error>
#include <utility>

namespace vireo {

namespace {

struct FirstFrame {
    double milliseconds = 0.0;
    std::int64_t peakKilobytes = 0;
};

/// Notes the end of the first paint of a window, and then closes all windows.
class FirstFrameApplication : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        const QEvent::Type type = event->type();
        const bool handled = QApplication::notify(receiver, event);
        if (type == QEvent::Paint && receiver->isWidgetType())
            m_painted = true;
        // A window is painted, and its picture handed to the screen, within one of these.
        const bool endsFrame = type == QEvent::Expose || type == QEvent::UpdateRequest;
        if (endsFrame && m_painted && !m_frame)
            TakeFrame();
        return handled;
    }

    const std::optional<FirstFrame>& Frame() const { return m_frame; }

private:
    void TakeFrame()
    {
        m_frame =
            FirstFrame{MillisecondsSinceStart().value_or(0.0), PeakMemoryKilobytes().value_or(0)};
        QTimer::singleShot(0, this, &QApplication::closeAllWindows);
    }

    bool m_painted = false;
    std::optional<FirstFrame> m_frame;
};

/// The main dialog as the viewer makes it.
void ShowMainDialog()
{
    CViewerDlg::Setup setup;
    setup.viewers = ProgramViewers();
    setup.recentList = StateFolder() / "recent-files.txt";
    setup.programFolder = ProgramFolder();
    CViewerDlg(std::move(setup)).DoModal();
}

/// A file that a viewer may do with as it likes: it corrects some tonal resolutions and deletes
/// others, so of these it gets a copy, which is removed in the end.
class FileToShow {
public:
    /// Takes the file itself where it is safe; a copy that cannot be made is a file that is
    /// missing.
    explicit FileToShow(const Subject& subject) : m_path(subject.path)
    {
        if (subject.Kind() != FileKind::TonalResolution)
            return;
        std::random_device random;
        m_folder = std::filesystem::temp_directory_path()
            / Format("vireo-bench-%08x%08x", random(), random());
        m_path = m_folder / subject.path.filename();
        std::error_code ignored;
        std::filesystem::create_directory(m_folder, ignored);
        std::filesystem::copy_file(subject.path, m_path, ignored);
    }
    FileToShow(const FileToShow&) = delete;
    FileToShow& operator=(const FileToShow&) = delete;
    ~FileToShow()
    {
        std::error_code ignored;
        if (!m_folder.empty())
            std::filesystem::remove_all(m_folder, ignored);
    }
    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_folder; ///< Of the copy; empty without one.
    std::filesystem::path m_path;
};

/// Why the file cannot be shown, as its viewer told it, without the full stop; empty when it did
/// not. What is told of a file that can, such as what its header lacks, does not name it.
std::string ToldFailure(const MessageRecorder& messages, const std::filesystem::path& file)
{
    const std::string named = ShownPath(file) + "\n\n";
    for (const MessageRecorder::Message& message : messages.Messages()) {
        const std::size_t at = message.text.find(named);
        if (at == std::string::npos)
            continue;
        std::string reason = message.text.substr(at + named.size());
        if (reason.ends_with('.'))
            reason.pop_back();
        return reason;
    }
    return {};
}

/// The viewer of a file; gives the reason when there is none, or it can show nothing of the file.
std::string ShowViewer(const std::string& name, const MessageRecorder& messages)
{
    Subject subject;
    const FileStatus status = RecogniseSubject(name, std::nullopt, subject);
    if (status != FileStatus::Ok)
        return std::string(Describe(status));
    ViewerTable viewers = ProgramViewers();
    const auto& wanted = subject.recognition.viewers;
    if (wanted.empty() || !viewers.Has(wanted.front()))
        return CannotBe(subject.Kind(), "shown");
    const FileToShow file(subject);
    viewers.OpenViewer(wanted.front(), file.Path(), nullptr);
    return ToldFailure(messages, file.Path());
}

void AddOptions(CommandOptions& command, BenchSettings& settings)
{
    AddBenchOptions(command, settings, Presence::Optional);
}

FileResult Run(const BenchSettings& settings)
{
    UseOffscreenPlatform();
    std::string name = kBenchProgram;
    char* arguments[] = {name.data(), nullptr};
    int count = 1;
    FirstFrameApplication application(count, arguments);
    // Nobody is there to answer a message box.
    const MessageRecorder messages;
    // A dialog that shows nothing must not keep the program for ever.
    constexpr int kLongestWaitMs = 30'000;
    QTimer::singleShot(kLongestWaitMs, &application, &QApplication::closeAllWindows);

    if (settings.file.empty())
        ShowMainDialog();
    else if (std::string failure = ShowViewer(settings.file, messages); !failure.empty())
        return {{}, std::move(failure)};
    if (!application.Frame())
        return {{}, "Nothing was shown"};

    Json object;
    object["first_frame_ms"] = application.Frame()->milliseconds;
    object["peak_rss_kb"] = application.Frame()->peakKilobytes;
    return {ToLine(object), {}};
}

} // namespace

BenchCommand FirstFrameBench()
{
    return {"first-frame",
        "The main dialog, or a file's viewer, from the start of the process to its first paint",
        AddOptions, Run};
}

} // namespace vireo
