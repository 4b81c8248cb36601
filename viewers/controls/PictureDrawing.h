#pragma once

#include "viewers/controls/PictureRows.h"
#include "viewers/controls/PictureView.h"
#include "viewers/controls/PixelTarget.h"

namespace vireo {

class PicturePyramid;

/// What a drawing is made from. Without a pyramid, and while it is being built, a picture drawn
/// very small is only sampled.
struct PictureContent {
    const PictureRows* rows = nullptr; ///< Null draws nothing but white.
    const PicturePyramid* pyramid = nullptr;
};

/// Exact: every drawn pixel is made from all the picture pixels it stands for. Fast, for views that
/// change quickly: where that would take long, thin lines are drawn paler, or a coarser level of
/// the pyramid larger.
enum class PictureQuality { Exact, Fast };

/// Draws what a view shows of a picture; what is outside the picture is white. The target is as
/// large as the view. From zoom 1 up pixels are squares with sharp edges, below 1 they are reduced
/// so that nothing thin gets lost. False when the drawing is worse than exact.
bool DrawPicture(const PictureContent& content, const PictureView& view, const PixelTarget& target,
    PictureQuality quality = PictureQuality::Exact);

} // namespace vireo
