#pragma once

#include "imagefile/CTIFCoder.h"

namespace vireo {

/// Codes each row by itself as PackBits (TIFF 6.0, section 9; compression 32773): literals of 1 to
/// 128 bytes behind their count - 1, and repeats of 2 to 128 bytes as 1 - count and the byte.
///
/// A row begins with a repeat when its first two bytes are equal. Inside a literal, a pair of equal
/// bytes begins a repeat when a third equal byte follows, when another pair follows directly, when
/// it lies within the last three bytes of the row, or when the chunk before the literal was a
/// repeat. Behind a repeat comes a repeat if the next two bytes are equal, else a literal.
class CPackbitCoder : public CTIFCoder {
public:
    explicit CPackbitCoder(CTIFOutput& output) : CTIFCoder(output) { }

    /// Takes bilevel, Gray8, Rgb8 and Palette8; InvalidTiffArguments for other depths.
    ImageResult BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t height,
        std::uint32_t resolution, std::uint32_t reserved1, std::uint32_t reserved2) override;
    ImageResult LineDone() override;
    ImageResult EndImage(std::uint32_t status) override;

private:
    void MarkRow();

    // Bit i for byte i of the row; words of zeros behind the row's.
    std::vector<std::uint64_t> m_pairs;       ///< It equals the next byte.
    std::vector<std::uint64_t> m_strongPairs; ///< And would end a literal that follows a literal.
};

} // namespace vireo
