#pragma once

#include <QDialog>

#include <string_view>

namespace vireo {

/// Shows the header of a file as it stands in it, to be read, searched through and copied.
class CHeaderText_Dialog : public QDialog {
    Q_OBJECT

public:
    /// `header` is Windows-1252; without any text the window says so.
    CHeaderText_Dialog(std::string_view header, QWidget* parent);
};

} // namespace vireo
