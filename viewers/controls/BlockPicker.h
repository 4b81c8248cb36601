#pragma once

#include "viewers/controls/PictureReduction.h"

#include <cstdint>
#include <vector>

namespace vireo {

/// Chooses the value of each block of a row, its mean or its extreme, by itself and the blocks
/// around it.
class BlockPicker {
public:
    /// `count` blocks from `offset` on. At the picture's edges, `above` or `below` is `here`
    /// itself.
    void Pick(const BlockRow& above, const BlockRow& here, const BlockRow& below,
        std::size_t offset, std::size_t count, std::uint8_t* values);

private:
    // Over the blocks around: lowest and highest mean, and the smallest distance of an extreme from
    // its mean. One entry more at each end.
    std::vector<std::uint8_t> m_darkest;
    std::vector<std::uint8_t> m_lightest;
    std::vector<std::uint8_t> m_calmest;
    /// 255 for the blocks whose extreme may be picked, else 0.
    std::vector<std::uint8_t> m_peaks;
};

} // namespace vireo
