#pragma once

#include "cli/render/ReportLayout.h"
#include "cli/render/ReportTable.h"

#include <cstddef>
#include <string>

class QPainter;

namespace vireo {

/// Lays the table out on pages of a size, each row as high as its longest text needs.
ReportLayout LayOutReport(const ReportTable& table, QSizeF pagePoints);

/// Numbers the pages of a report: those of the table first, then those of the plots.
struct ReportPages {
    std::size_t table = 1;
    std::size_t plots = 0;

    std::size_t All() const { return table + plots; }
};

// All of these draw with a painter whose units are points.

/// Draws one page of the table, laid out as `LayOutReport` does.
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
