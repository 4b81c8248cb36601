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

/// The same for a picture with marks.
using RunPictureViewer = std::function<void(const MarkedPicture& picture, QWidget* parent)>;

/// The program's viewers by the names of their dialog classes.
class ViewerTable : public ViewerHost {
public:
    void Add(std::string_view viewer, RunViewer run);
    void SetPictureViewer(RunPictureViewer run) { m_runPictureViewer = std::move(run); }
    bool Has(std::string_view viewer) const;

    bool OpenViewer(
        std::string_view viewer, const std::filesystem::path& file, QWidget* parent) override;
    bool OpenPicture(const MarkedPicture& picture, QWidget* parent) override;
    bool UnpackDump(const std::filesystem::path& dump, QWidget* parent) override;

    /// Tells the user, in one message, that there is no such viewer yet.
    static void ShowNoViewer(std::string_view viewer, const std::filesystem::path& file);

private:
    struct Row {
        std::string viewer;
        RunViewer run;
    };
    const Row* Find(std::string_view viewer) const;

    std::vector<Row> m_rows;
    RunPictureViewer m_runPictureViewer;
};

/// Every viewer that this program has.
ViewerTable ProgramViewers();

} // namespace vireo
