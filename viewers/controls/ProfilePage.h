#pragma once

#include "viewers/controls/ProfilePlot.h"

#include <QRectF>
#include <QSizeF>

#include <string>
#include <vector>

class QPainter;

namespace vireo {

/// One printed page of profile plots: header lines, the main plot over the page's width and below
/// it its companions side by side.
struct ProfilePage {
    struct Plot {
        ProfilePlotContent content;
        QSizeF size; ///< The size the plot is laid out at, in logical units; not empty.
    };
    std::vector<std::string> header; ///< Windows-1252; printing ends at the first empty line.
    Plot main;
    std::vector<Plot> companions;
};

/// Draws a page into `page`, the printable rectangle in the painter's device units. Plots are laid
/// out at their own size and drawn as lines and text at the device's resolution.
void DrawProfilePage(QPainter& painter, const QRectF& page, const ProfilePage& content);

} // namespace vireo
