#pragma once

#include <filesystem>
#include <string_view>

class QWidget;

namespace vireo {

/// By whom one viewer opens another without knowing it: the program's table of viewers.
class ViewerHost {
public:
    virtual ~ViewerHost() = default;

    /// Opens the dialog class `viewer` modally on a file and returns when it has closed. A class
    /// that does not exist yet gives one message that names the kind; the result is then false.
    virtual bool OpenViewer(
        std::string_view viewer, const std::filesystem::path& file, QWidget* parent) = 0;
};

} // namespace vireo
