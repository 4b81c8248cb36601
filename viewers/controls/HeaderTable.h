#pragma once

#include "testfile/HeaderView.h"

#include <QString>

#include <vector>

class QTableWidget;

namespace vireo {

/// Fills a table with header rows: key, value and meaning. Cells can be selected and not changed.
void FillHeaderTable(QTableWidget& table, const std::vector<HeaderRow>& rows);

/// The selected rows of a table, or all where none is, as lines of cells with tabs between: what a
/// spreadsheet takes.
QString TableText(const QTableWidget& table);

} // namespace vireo
