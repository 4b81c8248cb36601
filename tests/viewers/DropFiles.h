#pragma once

#include "platform/Path.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace vireo {

inline QUrl UrlOf(const std::filesystem::path& file)
{
    return QUrl::fromLocalFile(QString::fromStdString(Utf8FromPath(file)));
}

/// Drops a list of files on a window's middle, as the desktop does; whether it was taken.
inline bool DropFiles(QWidget& window, const QList<QUrl>& urls)
{
    QMimeData data;
    data.setUrls(urls);
    const QPoint middle = window.rect().center();
    QDragEnterEvent enter(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&window, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent drop(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
    return true;
}

} // namespace vireo
