#include "viewers/controls/VerdictIcon.h"

#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <cmath>

namespace vireo {

VerdictView ViewOf(const LimitsAnswer& answer)
{
    using Look = VerdictView::Look;
    if (!answer.verdict)
        return {"Not checked", Look::Open};
    if (answer.verdict->Result() == Verdict::Outcome::Fail)
        return {VerdictText(*answer.verdict), Look::Failed};
    if (!answer.failure.empty() && answer.verdict->checked > 0)
        return {"Fail", Look::Failed};
    const bool isPassed = answer.verdict->Result() == Verdict::Outcome::Pass;
    return {VerdictText(*answer.verdict), isPassed ? Look::Passed : Look::Open};
}

QIcon VerdictIcon(VerdictView::Look look, const QWidget& window)
{
    constexpr int kSide = 16;
    constexpr QColor kGreen(0, 130, 40);
    constexpr QColor kRed(200, 20, 20);
    const double ratio = window.devicePixelRatioF();
    QPixmap pixmap(QSize(kSide, kSide) * static_cast<int>(std::ceil(ratio)));
    pixmap.setDevicePixelRatio(std::ceil(ratio));
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto pen = [](const QColor& colour) {
        return QPen(colour, 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    };
    switch (look) {
    case VerdictView::Look::Passed:
        painter.setPen(pen(kGreen));
        painter.drawPolyline(QPolygonF({{3.0, 8.5}, {6.5, 12.0}, {13.0, 4.0}}));
        break;
    case VerdictView::Look::Failed:
        painter.setPen(pen(kRed));
        painter.drawLine(QPointF(4.0, 4.0), QPointF(12.0, 12.0));
        painter.drawLine(QPointF(12.0, 4.0), QPointF(4.0, 12.0));
        break;
    case VerdictView::Look::Open:
        painter.setPen(pen(Qt::gray));
        painter.drawEllipse(QPointF(8.0, 8.0), 4.5, 4.5);
        break;
    }
    return QIcon(pixmap);
}

} // namespace vireo
