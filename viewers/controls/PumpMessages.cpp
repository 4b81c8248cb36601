#include "viewers/controls/PumpMessages.h"

#include <QCoreApplication>

namespace vireo {

void PumpMessages()
{
    // A quit met here only marks the loops that are running; they end when control is back there.
    QCoreApplication::processEvents();
}

} // namespace vireo
