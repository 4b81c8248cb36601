#include "cli/render/ReportText.h"

#include "cli/render/ReportLayout.h"
#include "cli/render/WrappedText.h"
#include "viewers/controls/Fonts.h"

#include <algorithm>

namespace vireo {

namespace {

using Cell = ReportColumn::Cell;

constexpr ReportColumn kColumns[] = {
    {Cell::Number, "No.", 0.045, 0.045, Qt::AlignRight, Qt::ElideNone},
    {Cell::File, "File", 0.22, 0.265, Qt::AlignLeft, Qt::ElideMiddle},
    {Cell::Kind, "Kind", 0.135, 0.145, Qt::AlignLeft, Qt::ElideRight},
    {Cell::Scanner, "Scanner", 0.115, 0.12, Qt::AlignLeft, Qt::ElideMiddle},
    {Cell::Date, "Date", 0.09, 0.09, Qt::AlignLeft, Qt::ElideRight},
    {Cell::Figures, "Figures", 0.235, 0.285, Qt::AlignLeft, Qt::ElideRight},
    {Cell::Verdict, "Verdict", 0.11, 0.0, Qt::AlignLeft, Qt::ElideRight},
    {Cell::Page, "Page", 0.05, 0.05, Qt::AlignRight, Qt::ElideNone},
};

constexpr double kCellGap = 4.0;

} // namespace

std::span<const ReportColumn> ReportColumns()
{
    return kColumns;
}

ReportText::ReportText(const ReportTable& table, QSizeF page)
    : m_table(table),
      m_font(FontOfHeight(kSansFace, kTextHeight)),
      m_width(page.width() - 2 * ReportLayout::kMargin)
{
}

double ReportText::WidthOf(const ReportColumn& column) const
{
    return m_width * (m_table.HasVerdicts() ? column.share : column.shareWithoutVerdicts);
}

double ReportText::TextWidthOf(const ReportColumn& column) const
{
    return std::max(WidthOf(column) - kCellGap, 0.0);
}

QStringList ReportText::Wrapped(
    const std::string& text, double width, Qt::TextElideMode elide) const
{
    constexpr int kMostLines = 4;
    return WrapText(QString::fromStdString(text), m_font, width, kMostLines, elide);
}

QStringList ReportText::HeadLines() const
{
    QStringList lines = Wrapped(m_table.Tally(), m_width, Qt::ElideMiddle);
    if (m_table.HasVerdicts())
        lines += Wrapped("Limits: " + m_table.limits, m_width, Qt::ElideMiddle);
    if (!m_table.folder.empty())
        lines += Wrapped("Folder: " + m_table.folder, m_width, Qt::ElideMiddle);
    return lines;
}

std::string ReportText::TextOf(Cell cell, std::size_t index, std::size_t page) const
{
    const ReportRow& row = m_table.rows[index];
    const FileSummary& summary = row.summary;
    switch (cell) {
    case Cell::Number:
        return std::to_string(index + 1);
    case Cell::File:
        return row.name.substr(m_table.folder.size());
    case Cell::Kind:
        return summary.kind;
    case Cell::Scanner:
        return summary.scanner;
    case Cell::Date:
        return summary.date;
    case Cell::Figures:
        return summary.failure.empty() ? summary.figures : summary.failure;
    case Cell::Verdict:
        return row.Outcome() + (summary.counts.empty() ? "" : ": " + summary.counts);
    case Cell::Page:
        return row.hasPage ? std::to_string(page) : std::string();
    }
    return {};
}

QStringList ReportText::LinesOf(const ReportColumn& column, std::size_t row, std::size_t page) const
{
    return Wrapped(TextOf(column.cell, row, page), TextWidthOf(column), column.elide);
}

double ReportText::RowHeight(std::size_t row) const
{
    qsizetype lines = 1;
    for (const ReportColumn& column : kColumns)
        if (WidthOf(column) > 0.0)
            lines = std::max(lines, LinesOf(column, row, 0).size());
    return static_cast<double>(lines) * kLinePitch + 2 * kRowPadding;
}

} // namespace vireo
