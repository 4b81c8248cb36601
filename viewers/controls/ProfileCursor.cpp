#include "viewers/controls/Fonts.h"
#include "viewers/controls/PlotFurniture.h"
#include "viewers/controls/ProfilePlot.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace vireo {

void DrawPlotCursor(
    QPainter& painter, const ProfileScale& scale, QPointF point, const QString& text)
{
    const double x = point.x();
    if (x < scale.left || x > scale.Right())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(QColor(40, 44, 50, 150), 0));
    painter.drawLine(QPointF(x, scale.top), QPointF(x, scale.Bottom()));
    painter.setPen(QPen(QColor(190, 75, 0), 1.5));
    painter.setBrush(Qt::white);
    if (point.y() >= scale.top && point.y() <= scale.Bottom())
        painter.drawEllipse(point, 3.5, 3.5);

    const QFont font = FontOfHeight(kSansFace, 12);
    const QFontMetricsF metrics(font);
    QRectF box(0, 0, metrics.horizontalAdvance(text) + 12.0, metrics.height() + 6.0);
    // The box changes sides before it would leave the plot.
    constexpr double kGap = 8.0;
    const bool fitsRight = x + kGap + box.width() <= scale.Right();
    box.moveTo(fitsRight ? x + kGap : std::max(x - kGap - box.width(), scale.left),
        scale.Bottom() - box.height() - kGap);
    painter.setPen(QPen(PlotColour::kFrame, 0.8));
    painter.setBrush(QColor(255, 255, 240, 235));
    painter.drawRoundedRect(box, 3, 3);
    painter.setFont(font);
    painter.setPen(PlotColour::kInk);
    painter.drawText(box, Qt::AlignCenter, text);
    painter.restore();
}

namespace {

QString CursorText(const CursorReading& reading)
{
    QString text = QStringLiteral("px %1").arg(reading.pixel);
    if (reading.positionMm)
        text += QStringLiteral("   %1 mm").arg(*reading.positionMm, 0, 'f', 2);
    if (reading.camera)
        text += QStringLiteral("   camera %1")
                    .arg(QLatin1Char(ProfileCameras::Letter(*reading.camera)));
    return text + QStringLiteral("   %1").arg(reading.value);
}

} // namespace

void DrawProfileCursor(
    QPainter& painter, QSizeF size, const ProfilePlotContent& content, const CursorReading& reading)
{
    const ProfileScale scale = ScaleOf(content, size);
    const QPointF point(
        scale.XAt(static_cast<double>(reading.pixel) + 0.5), scale.YAt(reading.value));
    DrawPlotCursor(painter, scale, point, CursorText(reading));
}

} // namespace vireo
