#pragma once

#include "viewers/controls/PictureRows.h"

namespace vireo {

class PicturePyramid;

/// The rows of a picture of which only reduced sizes are kept: each pixel is that of the block it
/// lies in.
class ReducedRows : public PictureRows {
public:
    /// `picture` tells the size only. Both must outlive this; the pyramid has levels.
    ReducedRows(const PictureRows& picture, const PicturePyramid& pyramid)
        : m_picture(picture),
          m_pyramid(pyramid)
    {
    }

    /// Pixels along one side of a block.
    std::int64_t Reduction() const;

    std::int64_t Width() const override { return m_picture.Width(); }
    std::int64_t Height() const override { return m_picture.Height(); }
    int Channels() const override { return m_picture.Channels(); }
    std::int64_t CoveredRows() const override;
    void Read(const PictureRect& rect, std::span<std::uint8_t> pixels) const override;

private:
    const PictureRows& m_picture;
    const PicturePyramid& m_pyramid;
};

} // namespace vireo
