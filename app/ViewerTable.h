#pragma once

#include "viewers/controls/ViewerHost.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class QWidget;

namespace vireo {

/// Constructs one kind of viewer on a file, runs it modally and returns when it has closed. The
/// path is empty when a launcher button opens the dialog, and a folder for an unpacked dump.
using RunViewer =
    std::function<void(const std::filesystem::path& file, ViewerHost& host, QWidget* parent)>;

/// Gets ready what a viewer needs before anything of it is shown, and tells and asks the user where
/// it cannot. False: the viewer is not to be opened.
using PrepareViewer = std::function<bool(QWidget* parent)>;

/// The same for a picture with marks.
using RunPictureViewer = std::function<void(const MarkedPicture& picture, QWidget* parent)>;

/// The program's viewers by the names of their dialog classes.
class ViewerTable : public ViewerHost {
public:
    /// `prepare` may be empty: then there is nothing to get ready.
    void Add(std::string_view viewer, RunViewer run, PrepareViewer prepare = {});
    void SetPictureViewer(RunPictureViewer run) { m_runPictureViewer = std::move(run); }
    /// Who is told of every file that a viewer shows.
    void SetFileKeeper(std::function<void(const std::filesystem::path& file)> keep)
    {
        m_keepFile = std::move(keep);
    }
    bool Has(std::string_view viewer) const;
    /// Gets a viewer ready that is opened without a file, in front of the window that opens it; to
    /// be called before this window makes way.
    bool Prepare(std::string_view viewer, QWidget* parent) const;

    bool OpenViewer(
        std::string_view viewer, const std::filesystem::path& file, QWidget* parent) override;
    bool OpenPicture(const MarkedPicture& picture, QWidget* parent) override;
    bool UnpackDump(const std::filesystem::path& dump, QWidget* parent) override;
    void FileShown(const std::filesystem::path& file) override;

    /// Tells the user, in one message, that there is no such viewer yet.
    static void ShowNoViewer(std::string_view viewer, const std::filesystem::path& file);

private:
    struct Row {
        std::string viewer;
        RunViewer run;
        PrepareViewer prepare;
    };
    const Row* Find(std::string_view viewer) const;

    std::vector<Row> m_rows;
    RunPictureViewer m_runPictureViewer;
    std::function<void(const std::filesystem::path&)> m_keepFile;
};

/// Every viewer that this program has.
ViewerTable ProgramViewers();

} // namespace vireo
