#pragma once

#include <QDialog>

namespace vireo {

/// The about box: file version, description and release of the running program.
class CAboutDlg : public QDialog {
    Q_OBJECT

public:
    explicit CAboutDlg(QWidget* parent = nullptr);
};

} // namespace vireo
