#pragma once

#include <QSizeF>

#include <cstddef>
#include <span>
#include <vector>

namespace vireo {

/// Where the parts of a report's table stand, in points on pages of a size; plain arithmetic.
class ReportLayout {
public:
    /// The height of what stands above the table on the first page, and those of the table's rows.
    /// A row stands whole on a page, which is taken to be higher than any of them.
    ReportLayout(QSizeF pagePoints, double headHeight, std::span<const double> rowHeights);

    static constexpr double kMargin = 36.0;
    static constexpr double kHeadingsHeight = 12.0; ///< Of the columns, on each page.
    static constexpr double kFootRoom = 18.0;

    QSizeF page;

    /// At least 1.
    std::size_t TablePages() const { return m_firstRows.size() - 1; }
    /// The rows first <= i < end of a page of the table, counted from 0.
    std::size_t FirstRow(std::size_t tablePage) const { return m_firstRows[tablePage]; }
    std::size_t EndRow(std::size_t tablePage) const { return m_firstRows[tablePage + 1]; }
    /// Upper edge of the columns' headings on a page.
    double TableTop(std::size_t tablePage) const
    {
        return kMargin + (tablePage == 0 ? m_headHeight : 0.0);
    }

private:
    double m_headHeight;
    std::vector<std::size_t> m_firstRows; ///< Of each page, and behind the last one.
};

} // namespace vireo
