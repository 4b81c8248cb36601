#pragma once

#include "viewers/controls/PictureDrawing.h"

#include <QRectF>

#include <string>
#include <vector>

class QPainter;

namespace vireo {

/// One printed page: the part of a picture that a view shows, under header lines.
struct StitchPage {
    PictureContent content;
    PictureView view;
    std::vector<std::string> header; ///< Windows-1252; printing ends at the first empty line.
};

/// Where the picture goes on a page: four fifths of its width wide, at the view's proportions, in
/// the middle both ways. A view too tall for that is as high as the page.
QRectF PlaceOnStitchPage(const QRectF& page, const PictureView& view);

/// Draws a page into its printable rectangle, in the painter's device units. The picture is drawn
/// from its own pixels: enlarged ones are squares at the device's resolution, reduced ones are made
/// for it. Header lines that do not fit above the picture are left out.
void DrawStitchPage(QPainter& painter, const QRectF& page, const StitchPage& content);

} // namespace vireo
