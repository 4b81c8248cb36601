#include "viewers/controls/PlotCursor.h"

#include "viewers/controls/Fonts.h"
#include "viewers/controls/PlotFurniture.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace vireo {

void DrawHairline(QPainter& painter, const ProfileScale& scale, double x)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(QColor(40, 44, 50, 150), 0));
    painter.drawLine(QPointF(x, scale.top), QPointF(x, scale.Bottom()));
    painter.restore();
}

void DrawCursorPoint(
    QPainter& painter, const ProfileScale& scale, QPointF point, const QColor& colour)
{
    constexpr double kRadius = 3.5;
    if (point.y() < scale.top || point.y() > scale.Bottom())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(colour, 1.5));
    painter.setBrush(Qt::white);
    painter.drawEllipse(point, kRadius, kRadius);
    painter.restore();
}

QRectF DrawCursorBox(QPainter& painter, const ProfileScale& scale, double x, QSizeF size)
{
    constexpr double kGap = 8.0;
    QRectF box(QPointF(), size);
    const bool fitsRight = x + kGap + box.width() <= scale.Right();
    box.moveTo(fitsRight ? x + kGap : std::max(x - kGap - box.width(), scale.left),
        scale.Bottom() - box.height() - kGap);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(PlotColour::kFrame, 0.8));
    painter.setBrush(QColor(255, 255, 240, 235));
    painter.drawRoundedRect(box, 3, 3);
    painter.restore();
    return box;
}

void DrawPlotCursor(
    QPainter& painter, const ProfileScale& scale, QPointF point, const QString& text)
{
    if (point.x() < scale.left || point.x() > scale.Right())
        return;
    DrawHairline(painter, scale, point.x());
    DrawCursorPoint(painter, scale, point, QColor(190, 75, 0));
    const QFont font = FontOfHeight(kSansFace, PlotFurniture::kFontHeight);
    const QFontMetricsF metrics(font);
    const QSizeF size(metrics.horizontalAdvance(text) + 12.0, metrics.height() + 6.0);
    const QRectF box = DrawCursorBox(painter, scale, point.x(), size);
    painter.save();
    painter.setFont(font);
    painter.setPen(PlotColour::kInk);
    painter.drawText(box, Qt::AlignCenter, text);
    painter.restore();
}

} // namespace vireo
