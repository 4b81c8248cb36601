#pragma once

#include "cli/render/ReportTable.h"

#include <QFont>
#include <QSizeF>
#include <QStringList>

#include <cstddef>
#include <span>
#include <string>

namespace vireo {

/// A column of a report's table.
struct ReportColumn {
    enum class Cell { Number, File, Kind, Scanner, Date, Figures, Verdict, Page };

    Cell cell;
    const char* heading;
    double share; ///< Of the table's width.
    double shareWithoutVerdicts;
    Qt::Alignment align;
    Qt::TextElideMode elide; ///< What is left out of a text that is longer than any in practice.
};

/// The columns from left to right; not all of them are in every table.
std::span<const ReportColumn> ReportColumns();

/// The texts of a report's table, broken into lines that fit their columns. Lengths are points.
class ReportText {
public:
    /// The table must outlive it.
    ReportText(const ReportTable& table, QSizeF page);

    static constexpr double kTextHeight = 8.0;
    static constexpr double kLinePitch = 10.0;
    static constexpr double kRowPadding = 1.0; ///< Above and below the lines of a row.

    const QFont& Font() const { return m_font; }
    /// Of the table.
    double Width() const { return m_width; }
    /// Of a column and the gap behind it; 0 for one that the table has not got.
    double WidthOf(const ReportColumn& column) const;
    /// What a column's texts have room for.
    double TextWidthOf(const ReportColumn& column) const;

    /// What stands below the title.
    QStringList HeadLines() const;
    /// The lines of a row, counted from 0, in a column that the table has. `page` is the page of
    /// the file's plot.
    QStringList LinesOf(const ReportColumn& column, std::size_t row, std::size_t page) const;
    double RowHeight(std::size_t row) const;

private:
    QStringList Wrapped(const std::string& text, double width, Qt::TextElideMode elide) const;
    std::string TextOf(ReportColumn::Cell cell, std::size_t index, std::size_t page) const;

    const ReportTable& m_table;
    QFont m_font;
    double m_width;
};

} // namespace vireo
