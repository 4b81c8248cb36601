#include "viewers/controls/CWidthCenter_Control.h"

#include "viewers/controls/Fonts.h"

#include <QEvent>
#include <QFontMetrics>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace vireo {

CWidthCenter_Control::CWidthCenter_Control(QWidget* parent) : CBasicTestControl(parent)
{
    setEnabled(false);
}

void CWidthCenter_Control::changeEvent(QEvent* event)
{
    CBasicTestControl::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && isEnabled())
        setEnabled(false);
}

void CWidthCenter_Control::SetLimits(double limit, double warningLimit)
{
    m_dLimit = limit;
    m_dWarningLimit = warningLimit;
    Redraw();
}

void CWidthCenter_Control::SetLeft(double fullScale, double value)
{
    m_left = {fullScale, value};
    Redraw();
}

void CWidthCenter_Control::SetRight(double fullScale, double value)
{
    m_right = {fullScale, value};
    Redraw();
}

CWidthCenter_Control::Verdict CWidthCenter_Control::VerdictOf(double value) const
{
    const double size = std::abs(value);
    // Written so that a value that is not a number is wrong.
    if (!(size <= m_dLimit))
        return Verdict::Wrong;
    return size >= m_dWarningLimit ? Verdict::Close : Verdict::Right;
}

namespace {

constexpr int kTitlePart = 10; ///< The title's band is a tenth of the height.
constexpr int kSmallestText = 11;

QColor VerdictColour(CWidthCenter_Control::Verdict verdict)
{
    switch (verdict) {
    case CWidthCenter_Control::Verdict::Right:
        return {0, 110, 30};
    case CWidthCenter_Control::Verdict::Close:
        return {160, 95, 0};
    case CWidthCenter_Control::Verdict::Wrong:
        break;
    }
    return {190, 20, 20};
}

int WidthAt(const QString& text, int height)
{
    return QFontMetrics(FontOfLineHeight(kSansFace, height)).horizontalAdvance(text) + 4;
}

/// The height at which a text fits a width: the one wanted, or less.
int FittingHeight(const QString& text, int height, int width)
{
    const int needed = WidthAt(text, height);
    const int fitting = needed <= width ? height : height * width / std::max(needed, 1);
    return std::max(fitting, std::min(height, kSmallestText));
}

} // namespace

bool CWidthCenter_Control::DrawContent(QPainter& dc, int width, int height)
{
    dc.fillRect(0, 0, width, height, palette().color(QPalette::Active, QPalette::Button));
    DrawTitle(dc, width, height);

    CDrawRedGreenRedRect gauge;
    const int top = height / kTitlePart;
    constexpr int kGaugePart = 3;
    gauge.SetPlace(
        (width - width / kGaugePart) / 2, top, width / kGaugePart, std::max(height - top - 4, 1));
    gauge.SetLimit(m_dLimit);
    gauge.SetFullScale(std::max(m_left.full, m_right.full));
    SetFont(dc,
        FittingHeight(
            QStringLiteral("-100000"), std::clamp(height / 24, 8, 16), width / kGaugePart * 3 / 4),
        kSansFace, kNormalWeight);
    gauge.Draw(dc);
    dc.setPen(Qt::black);
    dc.drawText(QRect(gauge.Place().right() + 4, top, width, FontHeight()),
        Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("mm"));
    DrawValue(dc, gauge, width, height, m_left, Side::Left);
    DrawValue(dc, gauge, width, height, m_right, Side::Right);
    return true;
}

void CWidthCenter_Control::DrawTitle(QPainter& dc, int width, int height)
{
    const QString title = QStringLiteral("Scan Width");
    const int band = height / kTitlePart;
    SetFont(dc, FittingHeight(title, std::max(band * 2 / 3, 1), width), kSansFace, kNormalWeight);
    dc.setPen(Qt::black);
    dc.drawText(
        QRect(0, 0, width, band), Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip, title);
}

/// A pointer at the gauge's side, and beside it the value in the colour of its verdict.
void CWidthCenter_Control::DrawValue(QPainter& dc, const CDrawRedGreenRedRect& gauge, int width,
    int height, const ValuePair& pair, Side side)
{
    const QRect place = gauge.Place();
    const double y = gauge.Scale().PositionOf(pair.value) + 0.5;
    const double away = side == Side::Left ? -1.0 : 1.0;
    const double tip = side == Side::Left ? place.left() - 1.0 : place.right() + 2.0;
    const double size = std::clamp(width / 24.0, 4.0, 10.0);
    dc.setRenderHint(QPainter::Antialiasing, true);
    dc.setPen(Qt::NoPen);
    dc.setBrush(VerdictColour(VerdictOf(pair.value)));
    dc.drawPolygon(QPolygonF({QPointF(tip, y), QPointF(tip + away * size, y - size * 0.6),
        QPointF(tip + away * size, y + size * 0.6)}));
    dc.setRenderHint(QPainter::Antialiasing, false);

    const QString text =
        std::isfinite(pair.value) ? QString::asprintf("%+.2f", pair.value) : QStringLiteral("?");
    const int beside = static_cast<int>(std::lround(tip + away * (size + 3.0)));
    const int wanted = std::clamp(height / 20, 8, 18);
    const bool fitsBeside =
        WidthAt(text, kSmallestText) <= (side == Side::Left ? beside : width - beside) - 2;
    // Where it is narrow, the text stands below its pointer.
    const int base = fitsBeside ? beside : static_cast<int>(std::lround(tip + away));
    const int room = side == Side::Left ? base : width - base;
    SetFont(dc, FittingHeight(text, wanted, room - 2), kSansFace, kNormalWeight);
    const int lineHeight = FontHeight();
    const double middle = fitsBeside ? y : y + size * 0.6 + lineHeight / 2.0;
    const int textTop = std::clamp(static_cast<int>(std::lround(middle)) - lineHeight / 2,
        place.top(), std::max(height - lineHeight, place.top()));
    const QRect box(side == Side::Left ? 0 : base, textTop, std::max(room, 0), lineHeight);
    dc.setPen(VerdictColour(VerdictOf(pair.value)));
    dc.drawText(box,
        Qt::AlignVCenter | Qt::TextDontClip | (side == Side::Left ? Qt::AlignRight : Qt::AlignLeft),
        text);
}

} // namespace vireo
