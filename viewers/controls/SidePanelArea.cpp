#include "viewers/controls/SidePanelArea.h"

#include <QEvent>
#include <QScrollBar>

namespace vireo {

SidePanelArea::SidePanelArea(QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, [this] { updateGeometry(); });
}

QSize SidePanelArea::sizeHint() const
{
    const QSize panel = widget() ? widget()->minimumSizeHint() : QSize(0, 0);
    const bool scrolls = verticalScrollBar()->maximum() > 0;
    return {
        panel.width() + (scrolls ? verticalScrollBar()->sizeHint().width() : 0), panel.height()};
}

QSize SidePanelArea::minimumSizeHint() const
{
    return {sizeHint().width(), QScrollArea::minimumSizeHint().height()};
}

bool SidePanelArea::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

} // namespace vireo
