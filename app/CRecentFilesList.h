#pragma once

#include <QListWidget>

#include <filesystem>
#include <vector>

namespace vireo {

/// The files opened last, newest first: the name of each above its folder. A double click or Enter
/// chooses one; Delete and the context menu take one off the list.
class CRecentFilesList : public QListWidget {
    Q_OBJECT

public:
    explicit CRecentFilesList(QWidget* parent = nullptr);

    void SetFiles(const std::vector<std::filesystem::path>& files);
    /// Shows these of the files in gray; they can still be chosen, and removed.
    void MarkMissing(const std::vector<std::filesystem::path>& missing);
    bool IsMissing(int row) const;

signals:
    void FileChosen(const std::filesystem::path& file);
    void RemoveChosen(const std::filesystem::path& file);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void OnItemActivated(const QListWidgetItem* item);
    void RemoveCurrent();

    std::vector<std::filesystem::path> m_files; ///< One a row; a file's name need not be Unicode.
};

} // namespace vireo
