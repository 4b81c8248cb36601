#include "viewers/controls/ElidedLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace vireo {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 4, QLabel::minimumSizeHint().height()};
}

QString ElidedLabel::ShownText() const
{
    return fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width() - 2 * margin());
}

bool ElidedLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty() || ShownText() == text())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect area = contentsRect().marginsRemoved({margin(), margin(), margin(), margin()});
    style()->drawItemText(&painter, area, static_cast<int>(alignment()), palette(), isEnabled(),
        ShownText(), foregroundRole());
}

} // namespace vireo
