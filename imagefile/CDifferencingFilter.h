#pragma once

#include "imagefile/CFilterBase.h"

#include <cstddef>

namespace vireo {

/// Takes from every sample of a row the one of the pixel before it, modulo 2^8 or 2^16: what
/// UndoDifferencing undoes. Samples of 16 bits count as little-endian as they lie.
void TakeDifferences(ColorDepth depth, std::uint8_t* row, std::size_t width);

/// Horizontal differencing (TIFF 6.0, section 14; predictor 2).
class CDifferencingFilter : public CFilterBase {
public:
    using CFilterBase::CFilterBase;

    /// Takes Gray8, Rgb8, Gray16 and Rgb16; InvalidTiffArguments for other depths.
    ImageResult BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t height,
        std::uint32_t resolution, std::uint32_t reserved1, std::uint32_t reserved2) override;
    std::uint8_t* GetLineBuffer() override { return m_row = CFilterBase::GetLineBuffer(); }
    ImageResult LineDone() override;

private:
    ColorDepth m_depth = ColorDepth::Gray8;
    std::size_t m_width = 0;
    std::uint8_t* m_row = nullptr; ///< The next stage's.
};

} // namespace vireo
