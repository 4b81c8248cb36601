#include "viewers/controls/Fonts.h"
#include "viewers/controls/ProfilePlot.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace vireo {

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
    const double x = scale.XAt(static_cast<double>(reading.pixel) + 0.5);
    const double y = scale.YAt(reading.value);
    if (x < scale.left || x > scale.Right())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(QColor(40, 44, 50, 150), 0));
    painter.drawLine(QPointF(x, scale.top), QPointF(x, scale.Bottom()));
    painter.setPen(QPen(QColor(190, 75, 0), 1.5));
    painter.setBrush(Qt::white);
    if (y >= scale.top && y <= scale.Bottom())
        painter.drawEllipse(QPointF(x, y), 3.5, 3.5);

    const QFont font = FontOfHeight(kSansFace, 12);
    const QFontMetricsF metrics(font);
    const QString text = CursorText(reading);
    QRectF box(0, 0, metrics.horizontalAdvance(text) + 12.0, metrics.height() + 6.0);
    // The box changes sides before it would leave the plot.
    constexpr double kGap = 8.0;
    const bool fitsRight = x + kGap + box.width() <= scale.Right();
    box.moveTo(fitsRight ? x + kGap : std::max(x - kGap - box.width(), scale.left),
        scale.Bottom() - box.height() - kGap);
    painter.setPen(QPen(QColor(90, 96, 104), 0.8));
    painter.setBrush(QColor(255, 255, 240, 235));
    painter.drawRoundedRect(box, 3, 3);
    painter.setFont(font);
    painter.setPen(QColor(30, 34, 38));
    painter.drawText(box, Qt::AlignCenter, text);
    painter.restore();
}

} // namespace vireo
