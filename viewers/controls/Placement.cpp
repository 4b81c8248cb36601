#include "viewers/controls/Placement.h"

#include <QMargins>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace vireo {

QRect PlaceOnDesktop(QSize wanted, QSize smallest, const QMargins& frame, const QRect& desktop)
{
    const QSize room = desktop.marginsRemoved(frame).size();
    QRect place(QPoint(), wanted.boundedTo(room).expandedTo(smallest));
    QRect framed = place.marginsAdded(frame);
    framed.moveCenter(desktop.center());
    framed.moveLeft(std::max(framed.left(), desktop.left()));
    framed.moveTop(std::max(framed.top(), desktop.top()));
    return framed.marginsRemoved(frame);
}

namespace {

/// Some systems put the frame on when the window shows. This is what they commonly take then.
constexpr QMargins kCommonFrame(4, 36, 4, 4);

QMargins FrameOf(const QWidget& window)
{
    const QWindow* const handle = window.windowHandle();
    const QMargins known = handle ? handle->frameMargins() : QMargins();
    return known.isNull() ? kCommonFrame : known;
}

} // namespace

void CentreOnDesktop(QWidget& window)
{
    const QMargins frame = FrameOf(window);
    const QSize smallest =
        window.minimumSize().expandedTo(window.minimumSizeHint()).boundedTo(window.size());
    const QRect place =
        PlaceOnDesktop(window.size(), smallest, frame, window.screen()->availableGeometry());
    window.resize(place.size());
    // A window is moved by the corner of its frame.
    window.move(place.topLeft() - QPoint(frame.left(), frame.top()));
}

} // namespace vireo
