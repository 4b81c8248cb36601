#pragma once

#include <QRect>

class QMargins;
class QWidget;

namespace vireo {

/// Where a window stands in the middle of a desktop, without its frame. It becomes no larger than
/// the desktop, its frame counted; one whose smallest size is still larger keeps the upper left
/// corner of its frame there.
QRect PlaceOnDesktop(QSize wanted, QSize smallest, const QMargins& frame, const QRect& desktop);

/// Gives a window that is about to show that place on its desktop.
void CentreOnDesktop(QWidget& window);

} // namespace vireo
