#pragma once

#include "viewers/controls/PictureDrawing.h"
#include "viewers/controls/PictureMark.h"
#include "viewers/controls/PictureView.h"
#include "viewers/picture/PictureCameras.h"
#include "viewers/picture/RowRange.h"

#include <QImage>
#include <QRectF>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

class QPainter;

namespace vireo {

/// All that a drawing of a picture is made from.
struct PicturePlotContent {
    PictureContent picture;
    /// What is shown; its pixels are those of the drawing.
    PictureView view;
    /// Pixels of the view that are as wide as a line on the screen: lines and texts are in
    /// proportion to it.
    double unit = 1.0;
    std::int64_t coveredRows = 0;      ///< Rows behind them are not there, or not yet.
    std::vector<RowRange> missingRows; ///< Others that are not there, from the top on.
    std::span<const CameraBoundary> boundaries;
    std::span<const PictureMark> marks;
    std::optional<PictureMark> middle; ///< The pixel that the marks are shown for.
};

/// Draws a picture into a rectangle that is scaled to the view: the pixels, what is missing of
/// them, the boundaries between cameras with their letters, and the marks. A picture smaller than
/// the view lies in its middle. `canvas` may be kept
/// for the next drawing, which then need not make one. False when the drawing is worse than exact.
bool DrawPicturePlot(QPainter& painter, const QRectF& target, const PicturePlotContent& content,
    QImage& canvas, PictureQuality quality = PictureQuality::Exact);

/// The same with as many pixels as the device has room for, where the picture has them. `pixels` is
/// the size of the target on the device.
void DrawPicturePrint(
    QPainter& painter, const QRectF& target, QSizeF pixels, const PicturePlotContent& content);

/// Where the picture goes on a page below its header lines: four fifths of the width, in the
/// proportions of the view and in the middle of the page, or smaller where the text needs the room.
QRectF PrintedPictureRect(const QRectF& page, double textBottom, QSizeF view);

/// The printed page: the lines, and below them what is in view.
void DrawPicturePage(QPainter& painter, const QRectF& page,
    const std::vector<std::string>& headerLines, const PicturePlotContent& content);

} // namespace vireo
