#pragma once

#include "viewers/controls/ViewerLimits.h"

#include <QDialog>

#include <filesystem>

class QTableWidget;

namespace vireo {

/// Lists the figures of a file that are not within their limits: to be read, and copied into a
/// spreadsheet.
class CVerdict_Dialog : public QDialog {
    Q_OBJECT

public:
    CVerdict_Dialog(
        const LimitsAnswer& answer, const std::filesystem::path& limits, QWidget* parent);

private:
    void Fill(const Verdict& verdict);
    void OnCopy();

    QTableWidget* m_table;
};

} // namespace vireo
