#include "viewers/controls/CDrawRedGreenRedRect.h"

#include <QFontMetrics>
#include <QPainter>

namespace vireo {

namespace {

const QColor kRed(214, 69, 65);
const QColor kGreen(88, 178, 92);
const QColor kFrame(60, 60, 60);

} // namespace

GaugeScale CDrawRedGreenRedRect::Scale() const
{
    return {m_iTop + m_iHeight / 2, (m_iHeight - 1) / 2, m_dFull};
}

void CDrawRedGreenRedRect::Draw(QPainter& dc) const
{
    const GaugeScale scale = Scale();
    const int greenTop = scale.PositionOf(m_dLimit);
    const int greenBottom = scale.PositionOf(-m_dLimit);
    dc.fillRect(Place(), kRed);
    dc.fillRect(m_iLeft, greenTop, m_iWidth, greenBottom - greenTop + 1, kGreen);
    DrawScale(dc);
    dc.setPen(kFrame);
    dc.setBrush(Qt::NoBrush);
    dc.drawRect(Place().adjusted(0, 0, -1, -1));
}

/// The decades from 1 up on both sides of zero, as far as the gauge reaches, and their texts where
/// there is room.
void CDrawRedGreenRedRect::DrawScale(QPainter& dc) const
{
    const GaugeScale scale = Scale();
    const QFontMetrics metrics(dc.font());
    dc.setPen(Qt::white);
    int lastText = scale.centre;
    const auto drawMark = [&](double value, bool withText) {
        const int y = scale.PositionOf(value);
        const int length = m_iWidth / 8;
        dc.fillRect(m_iLeft + 1, y, length, 1, Qt::white);
        dc.fillRect(m_iLeft + m_iWidth - 1 - length, y, length, 1, Qt::white);
        const QString text = QString::number(value);
        if (withText && metrics.horizontalAdvance(text) < m_iWidth - 2 * length) {
            dc.drawText(QRect(m_iLeft, y - metrics.height() / 2, m_iWidth, metrics.height()),
                Qt::AlignCenter, text);
        }
        return y;
    };
    drawMark(0.0, true);
    constexpr double kHighestDecade = 1e6;
    for (double value = 1.0; value <= kHighestDecade; value *= 10.0) {
        const int y = scale.PositionOf(value);
        if (y - metrics.height() / 2 <= m_iTop)
            break;
        const bool hasRoom = lastText - y >= metrics.height();
        drawMark(value, hasRoom);
        drawMark(-value, hasRoom);
        lastText = hasRoom ? y : lastText;
    }
}

} // namespace vireo
