#include "viewers/controls/CDrawRedGreenRedRect.h"

#include <QFontMetrics>
#include <QPainter>

#include <cmath>

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

namespace {

/// What a narrow gauge has room for: thousands are short.
QString ShortNumber(double value)
{
    constexpr double kThousand = 1000.0;
    const bool isShort = std::abs(value) < kThousand;
    return isShort ? QString::number(value) : QString::number(value / kThousand) + u'k';
}

} // namespace

/// The decades from 1 up on both sides of zero, as far as the gauge reaches, and their texts where
/// there is room.
void CDrawRedGreenRedRect::DrawScale(QPainter& dc) const
{
    const GaugeScale scale = Scale();
    const QFontMetrics metrics(dc.font());
    dc.setPen(Qt::white);
    int lastText = scale.centre;
    const int length = m_iWidth / 8;
    const auto fits = [&](const QString& text) {
        return metrics.horizontalAdvance(text) < m_iWidth - 2 * length;
    };
    const auto drawMark = [&](double value, bool withText) {
        const int y = scale.PositionOf(value);
        dc.fillRect(m_iLeft + 1, y, length, 1, Qt::white);
        dc.fillRect(m_iLeft + m_iWidth - 1 - length, y, length, 1, Qt::white);
        // The longer text of the two signs decides for both.
        const bool isShort = !fits(QString::number(-std::abs(value)));
        const QString text = isShort ? ShortNumber(value) : QString::number(value);
        if (withText && fits(text)) {
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
