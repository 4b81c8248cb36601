#include "viewers/controls/Placement.h"

#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace vireo {

void CentreOnDesktop(QWidget& window)
{
    const QRect desktop = window.screen()->availableGeometry();
    const QPoint centred = desktop.center() - window.rect().center();
    window.move(std::max(centred.x(), desktop.left()), std::max(centred.y(), desktop.top()));
}

} // namespace vireo
