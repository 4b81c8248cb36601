#include "app/ViewerTable.h"

#include "app/FileKind.h"
#include "app/UnpackBeside.h"
#include "platform/Message.h"
#include "platform/Path.h"
#include "viewers/controls/PictureMark.h"

#include <algorithm>
#include <utility>

namespace vireo {

namespace {
constexpr std::string_view kPictureViewer = "CPictureView_Dialog";

/// Dialogs that no section tag opens, and what is said while they are missing.
struct OtherViewer {
    std::string_view viewer;
    std::string_view text;
};
constexpr OtherViewer kOtherViewers[] = {
    {"CLPF_Dialog", "Vireo cannot run the live light profile test yet."},
    {"CNCTest_Dialog", "Vireo cannot run the live noise check yet."},
    {kPictureViewer, "Vireo cannot show TIFF pictures yet."},
};

std::string NoViewerText(std::string_view viewer)
{
    for (const auto& other : kOtherViewers)
        if (other.viewer == viewer)
            return std::string(other.text);
    const auto rows = DispatchTable();
    const auto row = std::ranges::find(rows, viewer, &DispatchRow::viewer);
    const FileKind kind = row == rows.end() ? FileKind::Unknown : row->kind;
    return "Vireo cannot show " + std::string(KindTitle(kind)) + " files yet.";
}
} // namespace

void ViewerTable::Add(std::string_view viewer, RunViewer run, PrepareViewer prepare)
{
    m_rows.push_back({std::string(viewer), std::move(run), std::move(prepare)});
}

bool ViewerTable::Prepare(std::string_view viewer, QWidget* parent) const
{
    const Row* row = Find(viewer);
    return row == nullptr || !row->prepare || row->prepare(parent);
}

bool ViewerTable::Has(std::string_view viewer) const
{
    return Find(viewer) != nullptr;
}

bool ViewerTable::OpenViewer(
    std::string_view viewer, const std::filesystem::path& file, QWidget* parent)
{
    const Row* row = Find(viewer);
    if (row == nullptr) {
        ShowNoViewer(viewer, file);
        return false;
    }
    row->run(file, *this, parent);
    return true;
}

bool ViewerTable::OpenPicture(const MarkedPicture& picture, QWidget* parent)
{
    if (!m_runPictureViewer) {
        ShowNoViewer(kPictureViewer, picture.file);
        return false;
    }
    m_runPictureViewer(picture, parent);
    return true;
}

bool ViewerTable::UnpackDump(const std::filesystem::path& dump, QWidget* parent)
{
    return UnpackBeside(dump, parent);
}

void ViewerTable::FileShown(const std::filesystem::path& file)
{
    if (m_keepFile)
        m_keepFile(file);
}

void ViewerTable::ShowNoViewer(std::string_view viewer, const std::filesystem::path& file)
{
    std::string text = NoViewerText(viewer);
    if (!file.empty())
        text += "\n\n" + ShownPath(file);
    ShowMessageInUtf8(text, MessageIcon::Information);
}

const ViewerTable::Row* ViewerTable::Find(std::string_view viewer) const
{
    const auto row = std::ranges::find(m_rows, viewer, &Row::viewer);
    return row == m_rows.end() ? nullptr : &*row;
}

} // namespace vireo
