#pragma once

#include "figures/FileSummary.h"

#include <QRectF>

#include <cstddef>
#include <span>
#include <string>
#include <vector>

class QPainter;

namespace vireo {

/// A row of a report's table.
struct ReportRow {
    std::string name; ///< As given, in UTF-8.
    FileSummary summary;
    bool hasPage = false; ///< Its plot is in the report.
};

/// Everything that the table says.
struct ReportTable {
    std::vector<ReportRow> rows;
    std::string limits; ///< Name of the limits file; empty without one.
    std::string folder; ///< What all names begin with, up to a '/'; named once, at the top.

    bool HasVerdicts() const { return !limits.empty(); }
    /// "34 files: 20 pass, 10 fail, 3 without limits, 1 cannot be read".
    std::string Tally() const;
};

/// The folder that all names begin with, its last '/' included; empty when there is none, or only
/// one file.
std::string CommonFolder(std::span<const ReportRow> rows);

/// Where the parts of a report's pages stand, in points on a page of a size; plain arithmetic.
class ReportLayout {
public:
    ReportLayout(QSizeF pagePoints, std::size_t rows);

    static constexpr double kMargin = 36.0;
    static constexpr double kRowHeight = 12.0;
    static constexpr double kHeadHeight = 46.0; ///< Of title and tally, on the first page.

    QSizeF page;
    std::size_t rowsOnFirst;
    std::size_t rowsOnOthers;
    std::size_t rows;

    /// At least 1.
    std::size_t TablePages() const;
    /// The rows first <= i < end of a page of the table, counted from 0.
    std::size_t FirstRow(std::size_t tablePage) const;
    std::size_t EndRow(std::size_t tablePage) const { return FirstRow(tablePage + 1); }
    /// Upper edge of the table's head line on a page.
    double TableTop(std::size_t tablePage) const;
};

/// Numbers the pages of a report: those of the table first, then those of the plots.
struct ReportPages {
    std::size_t table = 1;
    std::size_t plots = 0;

    std::size_t All() const { return table + plots; }
};

/// Draws one page of the table. The painter's units are points.
void DrawReportTable(
    QPainter& painter, const ReportTable& table, const ReportLayout& layout, std::size_t tablePage);

/// The line at the foot of every page: what the page is about, elided in the middle where it is
/// long, and the number of the page, counted from 1.
void DrawReportFoot(QPainter& painter, QSizeF pagePoints, const std::string& text,
    std::size_t number, const ReportPages& pages);

/// A page for a file that could not be drawn after all.
void DrawReportFailure(
    QPainter& painter, QSizeF pagePoints, const std::string& name, const std::string& reason);

} // namespace vireo
