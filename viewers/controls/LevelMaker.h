#pragma once

#include "viewers/controls/BlockPicker.h"
#include "viewers/controls/PictureReduction.h"

#include <cstdint>
#include <span>

namespace vireo {

/// Makes rows of a picture pyramid's level out of rows that lie in memory.
class LevelMaker {
public:
    /// `reduction` is a power of two up to kMostBlockRows.
    LevelMaker(std::int64_t sourceWidth, int channels, std::int64_t reduction);

    /// Entries that a row of blocks needs.
    std::size_t BlockCount() const { return m_width * m_channels; }

    /// Sums up one row of blocks. A row holds its channels one behind the other.
    void Make(std::span<const std::uint8_t* const> rows, BlockRow& blocks);
    /// A row of blocks that no data cover.
    static void MakeWhite(BlockRow& blocks);

    /// Writes the pixels of a level's row, all channels one behind the other.
    void Pick(
        const BlockRow& above, const BlockRow& here, const BlockRow& below, std::uint8_t* pixels);

private:
    std::size_t m_sourceWidth;
    std::size_t m_channels;
    std::size_t m_width;
    std::size_t m_paddedWidth;
    int m_halvings;
    BlockSums m_sums;
    ColumnHalver m_halver;
    BlockPicker m_picker;
};

} // namespace vireo
