#pragma once

#include <QDialog>

#include <optional>
#include <string>
#include <vector>

class QListWidget;

namespace vireo {

/// Lets the user choose one of several texts: with the mouse, the arrow keys or by typing its
/// beginning.
class CSelectionList_Dialog : public QDialog {
    Q_OBJECT

public:
    /// Texts are Windows-1252; `selected` is the one marked at first.
    CSelectionList_Dialog(const std::vector<std::string>& texts, int selected, QWidget* parent);

    /// Index of the text that is marked now.
    std::optional<int> Selected() const;

private:
    QListWidget* m_list;
};

} // namespace vireo
