#pragma once

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QWheelEvent>
#include <QWidget>

namespace vireo {

/// What `draw` paints on a picture of this size, of a colour that nothing else has.
template <typename Draw>
QImage Drawn(QSize size, double devicePixelRatio, const Draw& draw)
{
    QImage image(size * devicePixelRatio, QImage::Format_RGB32);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    draw(painter);
    return image;
}

/// The lowest and highest coordinates of what is not white.
inline QRect InkOf(const QImage& page)
{
    QRect ink;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            if (page.pixelColor(x, y) != QColor(Qt::white))
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

/// Turns the wheel over a point of a widget, by eighths of a degree; mice give 120 a step.
inline void TurnWheel(
    QWidget& widget, QPoint point, QPoint eighths, Qt::KeyboardModifiers keys = {})
{
    QWheelEvent event(point, widget.mapToGlobal(point), {}, eighths, Qt::NoButton, keys,
        Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

/// The mouse goes elsewhere.
inline void LeaveWidget(QWidget& widget)
{
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&widget, &leave);
}

} // namespace vireo
