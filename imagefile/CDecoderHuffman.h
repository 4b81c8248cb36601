#pragma once

#include "imagefile/CDecoder.h"

#include <memory>

namespace vireo {

struct BitWindow;

/// CCITT codes: modified Huffman (compression 2, T.4 rows of one dimension that begin on a byte)
/// and Group 4 (compression 4, T.6). Rows come with 1 bits as white, whatever the page says of its
/// sense; bits behind the last pixel are 1.
///
/// A row is held as the positions where its colour changes, from white at its left edge: that is
/// what the codes speak of, and what the next row of Group 4 refers to. Plain codes are decoded
/// several at a time while the input is far from its end; everything else, errors included, is left
/// to functions that decode one code and check it.
class CTIFReader::CDecoderHuffman : public CDecoder {
public:
    CDecoderHuffman(
        std::size_t bytesPerRow, TifStream& stream, std::uint32_t width, std::uint16_t compression);

    ImageResult DecodeLine(std::uint8_t* row) override;
    ImageResult StartStrip() override;

private:
    /// Positions of a row, in ascending order; the first one begins a black run. Behind the last
    /// one stands the width several times.
    struct Changes {
        std::unique_ptr<std::int32_t[]> memory;
        std::int32_t* positions = nullptr; ///< In front of it stands -1.
        std::size_t count = 0;

        bool IsBlack() const { return count % 2 != 0; }
    };

    ImageResult DecodeOneDimensional();
    ImageResult DecodeTwoDimensional();
    void DecodePlainRuns(std::int32_t& position);
    void DecodePlainCodes(std::int32_t& a0, std::size_t& b);
    ImageResult DecodeCode(std::int32_t& a0, std::size_t& b);
    ImageResult DecodeHorizontal(std::int32_t& a0);
    ImageResult DecodeVertical(std::int32_t b1, int offset, std::int32_t& a0);

    BitWindow OpenWindow() const;
    void CloseWindow(const BitWindow& window);
    void FindB1(std::int32_t a0, std::size_t& b) const;
    ImageResult ReadRun(bool isBlack, std::int32_t& run);
    std::uint64_t BitsAhead();
    ImageResult TakeBits(unsigned count);
    void AlignToByte();
    ImageResult EndRun(std::int32_t position);
    void EndFailedRow(std::int32_t position);
    void Draw(std::uint8_t* row);

    ImageResult (CDecoderHuffman::*m_decodeRow)();
    std::int32_t m_iWidth;
    std::size_t m_uMostChanges;
    Changes m_row;
    Changes m_reference;
    std::unique_ptr<std::uint64_t[]> m_turns; ///< Of the part being drawn; all 0 else.
    unsigned m_usedBits = 0;                  ///< Of the stream's next byte.
};

} // namespace vireo
