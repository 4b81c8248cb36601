#pragma once

#include "testfile/HeaderView.h"

#include <QDialog>

#include <filesystem>
#include <string_view>
#include <vector>

class QPlainTextEdit;
class QTableWidget;

namespace vireo {

/// Shows the header of a file as it stands in it, to be read, searched through and copied, and
/// beside it its keys with their values and what they mean.
class CHeaderText_Dialog : public QDialog {
    Q_OBJECT

public:
    /// `header` is Windows-1252; without any text the window says so. Without rows there is the
    /// text only.
    CHeaderText_Dialog(
        std::string_view header, QWidget* parent, const std::vector<HeaderRow>& rows = {});

private:
    void OnCopy();

    QPlainTextEdit* m_text;
    QTableWidget* m_table = nullptr;
};

/// Shows the header of a file, modally, or one message that says why there is none to show.
void ShowFileHeader(const std::filesystem::path& file, QWidget* parent);

} // namespace vireo
