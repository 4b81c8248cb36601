#include "cli/render/ReportDrawing.h"

#include "cli/render/ReportText.h"
#include "cli/render/WrappedText.h"
#include "viewers/controls/Fonts.h"
#include "viewers/controls/PlotFurniture.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <iterator>
#include <vector>

namespace vireo {

namespace {

constexpr double kTitleHeight = 15.0;
constexpr double kTitleRoom = 22.0;
constexpr double kHeadGap = 14.0; ///< Below what stands above the table.

const QColor kPassed(0, 110, 30);
const QColor kFailed(180, 0, 0);
const QColor kShade(245, 246, 248);

} // namespace

ReportLayout LayOutReport(const ReportTable& table, QSizeF pagePoints)
{
    const ReportText text(table, pagePoints);
    const double headHeight = kTitleRoom
        + static_cast<double>(text.HeadLines().size()) * ReportText::kLinePitch + kHeadGap;
    std::vector<double> rowHeights;
    rowHeights.reserve(table.rows.size());
    for (std::size_t i = 0; i < table.rows.size(); ++i)
        rowHeights.push_back(text.RowHeight(i));
    return {pagePoints, headHeight, rowHeights};
}

namespace {

/// One page of the table.
class TableDrawing {
public:
    TableDrawing(QPainter& painter, const ReportTable& table, const ReportLayout& layout)
        : m_painter(painter),
          m_table(table),
          m_layout(layout),
          m_text(table, layout.page)
    {
    }

    void Draw(std::size_t tablePage)
    {
        m_painter.save();
        if (tablePage == 0)
            DrawHead();
        double top = m_layout.TableTop(tablePage);
        DrawHeadings(top);
        top += ReportLayout::kHeadingsHeight;
        std::size_t page = m_layout.TablePages() + PagesBefore(m_layout.FirstRow(tablePage));
        for (std::size_t i = m_layout.FirstRow(tablePage); i < m_layout.EndRow(tablePage); ++i) {
            page += m_table.rows[i].hasPage ? 1 : 0;
            const double height = m_text.RowHeight(i);
            DrawRow(i, page, top, height);
            top += height;
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
        double top = ReportLayout::kMargin;
        m_painter.drawText(
            QPointF(ReportLayout::kMargin, top + QFontMetricsF(title).ascent()), "Test results");
        m_painter.setFont(m_text.Font());
        top += kTitleRoom;
        DrawLines(m_text.HeadLines(), Qt::AlignLeft, ReportLayout::kMargin, m_text.Width(), top);
    }

    void DrawHeadings(double top)
    {
        m_painter.setFont(FontOfHeight(kSansFace, ReportText::kTextHeight, kBoldWeight));
        m_painter.setPen(PlotColour::kInk);
        DrawCells(top, [](const ReportColumn& column) { return QStringList{column.heading}; });
        m_painter.fillRect(QRectF(ReportLayout::kMargin, top + ReportLayout::kHeadingsHeight - 0.5,
                               m_text.Width(), 0.5),
            PlotColour::kFrame);
        m_painter.setFont(m_text.Font());
    }

    void DrawRow(std::size_t index, std::size_t page, double top, double height)
    {
        const ReportRow& row = m_table.rows[index];
        if (index % 2 == 1)
            m_painter.fillRect(QRectF(ReportLayout::kMargin, top, m_text.Width(), height), kShade);
        DrawCells(top, [&](const ReportColumn& column) {
            m_painter.setPen(ColourOf(column.cell, row));
            return m_text.LinesOf(column, index, page);
        });
    }

    using Cell = ReportColumn::Cell;

    static QColor ColourOf(Cell cell, const ReportRow& row)
    {
        const bool isUnread = !row.summary.failure.empty();
        if ((cell == Cell::Figures && isUnread)
            || (cell == Cell::Verdict && (isUnread || row.summary.verdict == "fail")))
            return kFailed;
        if (cell == Cell::Verdict && row.summary.verdict == "pass")
            return kPassed;
        return PlotColour::kInk;
    }

    /// Draws a row of cells, of each the lines that `linesOf` gives for its column.
    template <typename LinesOf>
    void DrawCells(double top, const LinesOf& linesOf)
    {
        double left = ReportLayout::kMargin;
        for (const ReportColumn& column : ReportColumns()) {
            const double width = m_text.WidthOf(column);
            if (width > 0.0)
                DrawLines(linesOf(column), column.align, left, m_text.TextWidthOf(column),
                    top + ReportText::kRowPadding);
            left += width;
        }
    }

    void DrawLines(
        const QStringList& lines, Qt::Alignment align, double left, double width, double top)
    {
        const QFontMetricsF metrics(m_painter.font());
        double baseline = top + metrics.ascent();
        for (const QString& line : lines) {
            const double indent =
                align == Qt::AlignRight ? width - metrics.horizontalAdvance(line) : 0.0;
            m_painter.drawText(QPointF(left + indent, baseline), line);
            baseline += ReportText::kLinePitch;
        }
    }

    QPainter& m_painter;
    const ReportTable& m_table;
    const ReportLayout& m_layout;
    ReportText m_text;
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
    const QFont font = FontOfHeight(kSansFace, ReportText::kTextHeight);
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
    constexpr int kEnoughLines = 30;
    const QFont font = FontOfHeight(kSansFace, ReportText::kTextHeight);
    painter.save();
    painter.setFont(font);
    painter.setPen(kFailed);
    double baseline = ReportLayout::kMargin + QFontMetricsF(font).ascent();
    for (const std::string& text : {name, "This file cannot be drawn: " + reason}) {
        const double width = pagePoints.width() - 2 * ReportLayout::kMargin;
        for (const QString& line :
            WrapText(QString::fromStdString(text), font, width, kEnoughLines, Qt::ElideMiddle)) {
            painter.drawText(QPointF(ReportLayout::kMargin, baseline), line);
            baseline += ReportText::kLinePitch;
        }
    }
    painter.restore();
}

} // namespace vireo
