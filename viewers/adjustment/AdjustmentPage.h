#pragma once

#include "viewers/controls/PictureDrawing.h"
#include "viewers/controls/ProfilePlot.h"

#include <QRectF>
#include <QSizeF>

#include <string>
#include <vector>

class QPainter;

namespace vireo {

/// One printed page of an adjustment test: header lines and below them the profile or the picture,
/// or only the lines where the data are neither.
struct AdjustmentPage {
    std::vector<std::string> header;  ///< Windows-1252.
    ProfilePlotContent profile;       ///< Without a line: no profile.
    PictureContent picture;           ///< Without rows: no picture.
    QSizeF plotSize = {960.0, 300.0}; ///< What the profile is laid out at.
};

/// Draws a page into its printable rectangle, in the painter's device units.
void DrawAdjustmentPage(QPainter& painter, const QRectF& page, const AdjustmentPage& content);

/// Draws the whole picture as large as a size has room for, in the middle of it.
void DrawWholePicture(QPainter& painter, QSizeF size, const PictureContent& picture);

/// How many lines of text DrawTextLines has room for.
int TextLinesOf(QSizeF size);
/// Draws lines of text from the top, as large as the plots' texts; those that do not fit are left
/// out.
void DrawTextLines(QPainter& painter, QSizeF size, const std::vector<std::string>& lines);

} // namespace vireo
