// The cursor of the plots of several curves.

#include "viewers/controls/Colours.h"
#include "viewers/controls/CurvePlot.h"
#include "viewers/controls/Fonts.h"
#include "viewers/controls/PlotCursor.h"
#include "viewers/controls/PlotFurniture.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace vireo {

namespace {

/// A row of the cursor's reading.
struct CursorRow {
    QString name;
    QString value;
    QColor colour;
    double y; ///< Of the curve's point.
};

std::vector<CursorRow> CursorRows(
    const CurvePlotContent& content, const ProfileScale& scale, std::int64_t point)
{
    std::vector<CursorRow> rows;
    for (std::size_t i = 0; i < CurveSlots::kSlots; ++i) {
        const CurveSlot& slot = content.curves->At(i);
        const auto value = slot.IsShown() ? content.curves->ValueAt(i, point) : std::nullopt;
        if (!value)
            continue;
        constexpr double kLong = 1e6;
        rows.push_back({QString::fromStdString(slot.name),
            QString::number(*value, std::abs(*value) < kLong ? 'f' : 'g', 3), ToQColor(slot.colour),
            scale.YAt(*value)});
    }
    return rows;
}

void DrawCursorRows(
    QPainter& painter, const ProfileScale& scale, double x, const std::vector<CursorRow>& rows)
{
    constexpr double kEdge = 6.0;
    constexpr double kSwatch = 10.0;
    constexpr double kSwatchGap = 5.0;
    constexpr double kRowHeight = 15.0;
    constexpr double kColumnGap = 10.0;
    const QFont font = FontOfHeight(kSansFace, PlotFurniture::kFontHeight);
    const QFontMetricsF metrics(font);
    double nameWidth = 0.0;
    double valueWidth = 0.0;
    for (const CursorRow& row : rows) {
        nameWidth = std::max(nameWidth, metrics.horizontalAdvance(row.name));
        valueWidth = std::max(valueWidth, metrics.horizontalAdvance(row.value));
    }
    const double textLeft = kEdge + kSwatch + kSwatchGap;
    const QRectF box = DrawCursorBox(painter, scale, x,
        {textLeft + nameWidth + kColumnGap + valueWidth + kEdge,
            static_cast<double>(rows.size()) * kRowHeight + kEdge});
    painter.setFont(font);
    painter.setPen(PlotColour::kInk);
    QRectF line(box.left(), box.top() + kEdge / 2.0, box.width(), kRowHeight);
    for (const CursorRow& row : rows) {
        painter.fillRect(
            QRectF(line.left() + kEdge, line.center().y() - 1.0, kSwatch, 3.0), row.colour);
        painter.drawText(
            line.adjusted(textLeft, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, row.name);
        painter.drawText(
            line.adjusted(0, 0, -kEdge, 0), Qt::AlignVCenter | Qt::AlignRight, row.value);
        line.translate(0.0, kRowHeight);
    }
}

} // namespace

void DrawCurveCursor(
    QPainter& painter, QSizeF size, const CurvePlotContent& content, std::int64_t point)
{
    const ProfileScale scale = CurvePlotScale(content, size);
    const double x = scale.XAt(static_cast<double>(point));
    if (!content.curves || x < scale.left || x > scale.Right())
        return;
    const std::vector<CursorRow> rows = CursorRows(content, scale, point);
    painter.save();
    DrawHairline(painter, scale, x);
    for (const CursorRow& row : rows)
        DrawCursorPoint(painter, scale, {x, row.y}, row.colour);
    if (!rows.empty())
        DrawCursorRows(painter, scale, x, rows);
    painter.restore();
}

} // namespace vireo
