#include "cli/render/ReportTable.h"

#include "platform/Text.h"
#include "viewers/controls/Fonts.h"
#include "viewers/controls/PlotFurniture.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>

namespace vireo {

namespace {

constexpr double kTitleHeight = 15.0;
constexpr double kTextHeight = 8.0;
constexpr double kFootRoom = 18.0;

bool IsUnread(const ReportRow& row)
{
    return !row.summary.failure.empty();
}

} // namespace

std::string ReportTable::Tally() const
{
    const auto count = [this](const char* verdict) {
        return std::ranges::count_if(rows, [verdict](const ReportRow& row) {
            return !IsUnread(row) && row.summary.verdict == verdict;
        });
    };
    const auto unread = std::ranges::count_if(rows, IsUnread);
    std::string text = Format(rows.size() == 1 ? "%zu file" : "%zu files", rows.size());
    const char* separator = ": ";
    const auto add = [&](auto number, const char* what) {
        if (number == 0)
            return;
        text += separator + std::to_string(number) + what;
        separator = ", ";
    };
    if (HasVerdicts()) {
        add(count("pass"), " pass");
        add(count("fail"), " fail");
        add(count("no limits"), " without limits");
    }
    add(unread, " cannot be read");
    return text;
}

std::string CommonFolder(std::span<const ReportRow> rows)
{
    if (rows.size() < 2)
        return {};
    std::string_view common = rows.front().name;
    for (const ReportRow& row : rows) {
        const auto end = std::ranges::mismatch(common, row.name).in1;
        common = common.substr(0, static_cast<std::size_t>(end - common.begin()));
    }
    return std::string(common.substr(0, common.rfind('/') + 1));
}

ReportLayout::ReportLayout(QSizeF pagePoints, std::size_t rowCount)
    : page(pagePoints),
      rows(rowCount)
{
    const double room = page.height() - 2 * kMargin - kFootRoom - kRowHeight;
    const auto fitting = [](double height) {
        return static_cast<std::size_t>(std::max(std::floor(height / kRowHeight), 1.0));
    };
    rowsOnOthers = fitting(room);
    rowsOnFirst = fitting(room - kHeadHeight);
}

std::size_t ReportLayout::TablePages() const
{
    if (rows <= rowsOnFirst)
        return 1;
    return 1 + (rows - rowsOnFirst + rowsOnOthers - 1) / rowsOnOthers;
}

std::size_t ReportLayout::FirstRow(std::size_t tablePage) const
{
    if (tablePage == 0)
        return 0;
    return std::min(rows, rowsOnFirst + (tablePage - 1) * rowsOnOthers);
}

double ReportLayout::TableTop(std::size_t tablePage) const
{
    return kMargin + (tablePage == 0 ? kHeadHeight : 0.0);
}

namespace {

enum class Cell { Number, File, Kind, Scanner, Date, Figures, Verdict, Page };

struct Column {
    Cell cell;
    const char* heading;
    double share; ///< Of the table's width.
    Qt::Alignment align;
    Qt::TextElideMode elide;
};

constexpr Column kColumns[] = {
    {Cell::Number, "No.", 0.045, Qt::AlignRight, Qt::ElideNone},
    {Cell::File, "File", 0.225, Qt::AlignLeft, Qt::ElideMiddle},
    {Cell::Kind, "Kind", 0.125, Qt::AlignLeft, Qt::ElideRight},
    {Cell::Scanner, "Scanner", 0.11, Qt::AlignLeft, Qt::ElideRight},
    {Cell::Date, "Date", 0.095, Qt::AlignLeft, Qt::ElideRight},
    {Cell::Figures, "Figures", 0.24, Qt::AlignLeft, Qt::ElideRight},
    {Cell::Verdict, "Verdict", 0.11, Qt::AlignLeft, Qt::ElideRight},
    {Cell::Page, "Page", 0.05, Qt::AlignRight, Qt::ElideNone},
};

const QColor kPassed(0, 110, 30);
const QColor kFailed(180, 0, 0);
const QColor kShade(245, 246, 248);

/// One page of the table.
class TableDrawing {
public:
    TableDrawing(QPainter& painter, const ReportTable& table, const ReportLayout& layout)
        : m_painter(painter),
          m_table(table),
          m_layout(layout),
          m_font(FontOfHeight(kSansFace, kTextHeight)),
          m_metrics(m_font),
          m_width(layout.page.width() - 2 * ReportLayout::kMargin)
    {
    }

    void Draw(std::size_t tablePage)
    {
        m_painter.save();
        if (tablePage == 0)
            DrawHead();
        double top = m_layout.TableTop(tablePage);
        DrawHeadings(top);
        std::size_t page = m_layout.TablePages() + PagesBefore(m_layout.FirstRow(tablePage));
        for (std::size_t i = m_layout.FirstRow(tablePage); i < m_layout.EndRow(tablePage); ++i) {
            top += ReportLayout::kRowHeight;
            page += m_table.rows[i].hasPage ? 1 : 0;
            DrawRow(i, page, top);
        }
        m_painter.restore();
    }

private:
    std::size_t PagesBefore(std::size_t row) const
    {
        return static_cast<std::size_t>(std::count_if(m_table.rows.begin(),
            std::next(m_table.rows.begin(), static_cast<std::ptrdiff_t>(row)),
            [](const ReportRow& other) { return other.hasPage; }));
    }

    void DrawHead()
    {
        const QFont title = FontOfHeight(kSansFace, kTitleHeight, kBoldWeight);
        m_painter.setFont(title);
        m_painter.setPen(PlotColour::kInk);
        const double top = ReportLayout::kMargin;
        m_painter.drawText(
            QPointF(ReportLayout::kMargin, top + QFontMetricsF(title).ascent()), "Test results");
        m_painter.setFont(m_font);
        std::string tally = m_table.Tally();
        if (m_table.HasVerdicts())
            tally += "    Limits: " + m_table.limits;
        if (!m_table.folder.empty())
            tally += "    Folder: " + m_table.folder;
        m_painter.drawText(QPointF(ReportLayout::kMargin, top + kTitleHeight + 16.0),
            m_metrics.elidedText(QString::fromStdString(tally), Qt::ElideMiddle, m_width));
    }

    void DrawHeadings(double top)
    {
        m_painter.setFont(FontOfHeight(kSansFace, kTextHeight, kBoldWeight));
        m_painter.setPen(PlotColour::kInk);
        double left = ReportLayout::kMargin;
        for (const Column& column : kColumns) {
            if (column.cell != Cell::Verdict || m_table.HasVerdicts())
                DrawCell(column, left, top, column.heading);
            left += column.share * m_width;
        }
        m_painter.fillRect(
            QRectF(ReportLayout::kMargin, top + ReportLayout::kRowHeight - 0.5, m_width, 0.5),
            PlotColour::kFrame);
        m_painter.setFont(m_font);
    }

    void DrawRow(std::size_t index, std::size_t page, double top)
    {
        const ReportRow& row = m_table.rows[index];
        if (index % 2 == 1)
            m_painter.fillRect(
                QRectF(ReportLayout::kMargin, top, m_width, ReportLayout::kRowHeight), kShade);
        double left = ReportLayout::kMargin;
        for (const Column& column : kColumns) {
            m_painter.setPen(ColourOf(column.cell, row));
            DrawCell(column, left, top, TextOf(column.cell, row, index, page));
            left += column.share * m_width;
        }
    }

    static QColor ColourOf(Cell cell, const ReportRow& row)
    {
        if ((cell == Cell::Figures && IsUnread(row))
            || (cell == Cell::Verdict && row.summary.verdict == "fail"))
            return kFailed;
        if (cell == Cell::Verdict && row.summary.verdict == "pass")
            return kPassed;
        return PlotColour::kInk;
    }

    std::string TextOf(Cell cell, const ReportRow& row, std::size_t index, std::size_t page) const
    {
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
            return IsUnread(row) ? summary.failure : summary.figures;
        case Cell::Verdict:
            return summary.verdict + (summary.counts.empty() ? "" : ": " + summary.counts);
        case Cell::Page:
            return row.hasPage ? std::to_string(page) : std::string();
        }
        return {};
    }

    void DrawCell(const Column& column, double left, double top, const std::string& text)
    {
        constexpr double kGap = 4.0;
        const double width = column.share * m_width - kGap;
        const QFontMetricsF metrics(m_painter.font());
        const QString shown =
            metrics.elidedText(QString::fromStdString(text).simplified(), column.elide, width);
        const double x =
            column.align == Qt::AlignRight ? left + width - metrics.horizontalAdvance(shown) : left;
        m_painter.drawText(QPointF(x, top + metrics.ascent() + 2.0), shown);
    }

    QPainter& m_painter;
    const ReportTable& m_table;
    const ReportLayout& m_layout;
    QFont m_font;
    QFontMetricsF m_metrics;
    double m_width;
};

} // namespace

void DrawReportTable(
    QPainter& painter, const ReportTable& table, const ReportLayout& layout, std::size_t tablePage)
{
    TableDrawing(painter, table, layout).Draw(tablePage);
}

void DrawReportFoot(QPainter& painter, QSizeF pagePoints, const std::string& text,
    std::size_t number, const ReportPages& pages)
{
    constexpr double kFoot = 20.0; // Below what the pages of the viewers use.
    const QFont font = FontOfHeight(kSansFace, kTextHeight);
    const QFontMetricsF metrics(font);
    painter.save();
    painter.setFont(font);
    painter.setPen(PlotColour::kSoftInk);
    const double baseline = pagePoints.height() - kFoot;
    const QString count = QStringLiteral("Page %1 of %2").arg(number).arg(pages.All());
    const double right = pagePoints.width() - ReportLayout::kMargin;
    const double countLeft = right - metrics.horizontalAdvance(count);
    painter.drawText(QPointF(countLeft, baseline), count);
    painter.drawText(QPointF(ReportLayout::kMargin, baseline),
        metrics.elidedText(QString::fromStdString(text).simplified(), Qt::ElideMiddle,
            countLeft - ReportLayout::kMargin - 2 * metrics.averageCharWidth()));
    painter.restore();
}

void DrawReportFailure(
    QPainter& painter, QSizeF pagePoints, const std::string& name, const std::string& reason)
{
    painter.save();
    painter.setFont(FontOfHeight(kSansFace, kTextHeight));
    painter.setPen(kFailed);
    const QRectF room(ReportLayout::kMargin, ReportLayout::kMargin,
        pagePoints.width() - 2 * ReportLayout::kMargin, pagePoints.height() / 2.0);
    painter.drawText(room, Qt::TextWrapAnywhere,
        QString::fromStdString(name + "\nThis file cannot be drawn: " + reason));
    painter.restore();
}

} // namespace vireo
