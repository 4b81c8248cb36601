#include "viewers/controls/PlotCursor.h"
#include "viewers/controls/ProfilePlot.h"

namespace vireo {

namespace {

QString CursorText(const CursorReading& reading, const ProfileUnit& unit)
{
    QString text = QStringLiteral("px %1").arg(reading.pixel);
    if (reading.positionMm)
        text += QStringLiteral("   %1 ").arg(
                    *reading.positionMm / unit.millimetres, 0, 'f', unit.decimals)
            + QString::fromStdString(unit.symbol);
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
    DrawPlotCursor(painter, scale, point, CursorText(reading, content.unit));
}

} // namespace vireo
