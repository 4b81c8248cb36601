#pragma once

#include "viewers/controls/PictureDrawing.h"

#include <QImage>

namespace vireo {

/// Draws what a view shows of a picture into an image of the view's size, Format_RGB32. False when
/// the drawing is worse than exact.
bool DrawPicture(const PictureContent& content, const PictureView& view, QImage& image,
    PictureQuality quality = PictureQuality::Exact);

} // namespace vireo
