#pragma once

#include <filesystem>
#include <string_view>

class QWidget;

namespace vireo {

struct MarkedPicture;

/// By whom one viewer opens another, or has a dump unpacked, without knowing how: the program's
/// table of viewers.
class ViewerHost {
public:
    virtual ~ViewerHost() = default;

    /// Opens the dialog class `viewer` modally on a file and returns when it has closed. A class
    /// that does not exist yet gives one message that names the kind; the result is then false.
    virtual bool OpenViewer(
        std::string_view viewer, const std::filesystem::path& file, QWidget* parent) = 0;

    /// Opens the picture viewer modally on a picture with marks and returns when it has closed.
    virtual bool OpenPicture(const MarkedPicture& picture, QWidget* parent) = 0;

    /// Unpacks a packed dump into the folder that holds it, with progress where it takes long, and
    /// tells the user what has been left out. False when there is nothing new to show: nothing
    /// could be unpacked, which the user has been told, or the user has cancelled it.
    virtual bool UnpackDump(const std::filesystem::path& dump, QWidget* parent) = 0;

    /// A viewer shows a file that the user has chosen.
    virtual void FileShown(const std::filesystem::path& /*file*/) { }
};

} // namespace vireo
