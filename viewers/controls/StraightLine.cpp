#include "viewers/controls/StraightLine.h"

#include <QPaintEngine>
#include <QPainter>

#include <algorithm>

namespace vireo {

namespace {

constexpr double kHair = 0.5;
constexpr double kDash = 4.0;
constexpr double kGap = 3.0;

} // namespace

bool IsRaster(const QPainter& painter)
{
    return painter.paintEngine()->type() == QPaintEngine::Raster;
}

double DeviceScale(const QPainter& painter)
{
    return std::max(painter.deviceTransform().m11(), 0.1);
}

void DrawStraightLine(
    QPainter& painter, QPointF from, QPointF to, const QColor& colour, LineStyle style)
{
    if (!IsRaster(painter)) {
        painter.setPen(
            QPen(colour, kHair, style == LineStyle::Dashed ? Qt::DashLine : Qt::SolidLine));
        painter.drawLine(from, to);
        return;
    }
    const double pixel = 1.0 / DeviceScale(painter);
    const bool isVertical = from.x() == to.x();
    const double length = isVertical ? to.y() - from.y() : to.x() - from.x();
    const double dash = style == LineStyle::Dashed ? kDash : length;
    for (double at = 0.0; at < length; at += dash + kGap) {
        const double part = std::min(dash, length - at);
        painter.fillRect(isVertical ? QRectF(from.x(), from.y() + at, pixel, part)
                                    : QRectF(from.x() + at, from.y(), part, pixel),
            colour);
    }
}

} // namespace vireo
