#pragma once

#include "viewers/tonal/TonalView.h"

#include <QRectF>
#include <QSize>

#include <string>
#include <vector>

class QPainter;

namespace vireo {

/// Draws a tonal resolution plot of a size, in logical units, onto a white ground with its top left
/// corner at the painter's origin: title, frame and axes, the fitted lines, a cross a patch, and
/// what the view has besides. Asks no window, clock or setting: screen, paper and files get the
/// same plot, each at its device's resolution.
void DrawTonalPlot(QPainter& painter, QSize size, const TonalPlotContent& content);

/// Draws a printed page into its printable rectangle: the header lines (Windows-1252) and below
/// them the plot, laid out at `plotSize`.
void DrawTonalPage(QPainter& painter, const QRectF& page, const std::vector<std::string>& header,
    QSize plotSize, const TonalPlotContent& content);

} // namespace vireo
