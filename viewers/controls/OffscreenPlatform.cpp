#include "viewers/controls/OffscreenPlatform.h"

#include <QByteArray>
#include <QtGlobal>

namespace vireo {

namespace {

void DropMessage(QtMsgType, const QMessageLogContext&, const QString&) { }

} // namespace

void UseOffscreenPlatform()
{
#ifndef _WIN32
    // Windows has a display at all times, and its builds have no other platform.
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    qInstallMessageHandler(DropMessage);
}

} // namespace vireo
