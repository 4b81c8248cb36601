#include "viewers/controls/HeaderTable.h"

#include "viewers/controls/QtText.h"

#include <QHeaderView>
#include <QTableWidget>

namespace vireo {

void FillHeaderTable(QTableWidget& table, const std::vector<HeaderRow>& rows)
{
    table.setColumnCount(3);
    table.setHorizontalHeaderLabels(
        {QTableWidget::tr("Key"), QTableWidget::tr("Value"), QTableWidget::tr("Meaning")});
    table.setRowCount(static_cast<int>(rows.size()));
    table.verticalHeader()->hide();
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    table.setAlternatingRowColors(true);
    table.setWordWrap(false);
    for (int row = 0; row < table.rowCount(); ++row) {
        const HeaderRow& from = rows[static_cast<std::size_t>(row)];
        int column = 0;
        for (const std::string& text : {from.key, from.value, from.meaning}) {
            const QString shown = QStringFromText(text);
            auto* const item = new QTableWidgetItem(shown);
            item->setToolTip(shown);
            table.setItem(row, column++, item);
        }
    }
    // A value of a damaged file may be of any length.
    table.horizontalHeader()->setMaximumSectionSize(260);
    table.resizeColumnsToContents();
    table.horizontalHeader()->setMaximumSectionSize(-1);
    table.horizontalHeader()->setStretchLastSection(true);
    table.resizeRowsToContents();
}

QString TableText(const QTableWidget& table)
{
    const bool isAll = table.selectedItems().isEmpty();
    QString text;
    for (int row = 0; row < table.rowCount(); ++row) {
        if (!isAll && !table.item(row, 0)->isSelected())
            continue;
        for (int column = 0; column < table.columnCount(); ++column) {
            if (column > 0)
                text += QLatin1Char('\t');
            text += table.item(row, column)->text();
        }
        text += QLatin1Char('\n');
    }
    return text;
}

} // namespace vireo
