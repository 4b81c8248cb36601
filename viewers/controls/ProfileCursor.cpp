#include "viewers/controls/PlotCursor.h"
#include "viewers/controls/ProfilePlot.h"

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
    const QPointF point(
        scale.XAt(static_cast<double>(reading.pixel) + 0.5), scale.YAt(reading.value));
    DrawPlotCursor(painter, scale, point, CursorText(reading));
}

} // namespace vireo
