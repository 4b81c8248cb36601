#pragma once

#include "viewers/controls/PictureReduction.h"

#include <cstdint>
#include <vector>

namespace vireo {

/// Chooses the value of each block of a row by itself and the blocks around it.
class BlockPicker {
public:
    /// `count` blocks from `offset` on; `above` and `below` are `here` at the picture's edges.
    void Pick(const BlockRow& above, const BlockRow& here, const BlockRow& below,
        std::size_t offset, std::size_t count, std::uint8_t* values);

private:
    // Over the blocks around: lowest and highest mean, smallest range. One entry more at each end.
    std::vector<std::uint8_t> m_darkest;
    std::vector<std::uint8_t> m_lightest;
    std::vector<std::uint8_t> m_calmest;
};

} // namespace vireo
