#pragma once

#include "viewers/controls/PicturePyramid.h"
#include "viewers/controls/PictureView.h"
#include "viewers/controls/PixelTarget.h"

namespace vireo {

/// The pixels that a drawing below zoom 1 is made from: the picture's own, or those of a level.
struct ReducedSource {
    const PictureRows* rows = nullptr;
    const PicturePyramid::Level* level = nullptr; ///< Null for the picture's own rows.
    std::int64_t rowsDone = 0;                    ///< Rows of the level that may be used.

    std::int64_t Reduction() const { return level ? level->reduction : 1; }
    std::int64_t Width() const { return level ? level->width : rows->Width(); }
    std::int64_t Height() const { return level ? level->height : rows->Height(); }
    ChannelLayout Layout() const
    {
        return level ? ChannelLayout::Planes(rows->Channels(), level->width)
                     : ChannelLayout::Interleaved(rows->Channels());
    }
};

/// Ratios that differ by so little are the same.
inline constexpr double kRatioRounding = 1e-9;
/// The most source pixels along a side of a drawn one that DrawReduced takes.
inline constexpr double kLargestReducedRatio = 4.0;

/// What a drawn pixel is made from: the mean of its source pixels, or their extreme where it is
/// something thin that the mean would lose. Means alone take a third of the time.
enum class ReducedValues { LinesKept, Means };

/// Draws what a view below zoom 1 shows, each pixel made from all the source pixels it stands for:
/// 1 to kLargestReducedRatio along each side. See PictureReduction.h. The target may be a part of
/// the view that lies below its first `top` rows; the pixels are the same as in one drawing.
void DrawReduced(const ReducedSource& source, const PictureView& view, const PixelTarget& target,
    std::int64_t top, ReducedValues values);

/// The same from one source pixel for each drawn one, which may also stand for several of them.
void DrawSampled(const ReducedSource& source, const PictureView& view, const PixelTarget& target,
    std::int64_t top);

} // namespace vireo
