#pragma once

#include "imagefile/CDecoder.h"

#include <memory>

namespace vireo {

/// CCITT codes: modified Huffman (compression 2, T.4 rows of one dimension that begin on a byte)
/// and Group 4 (compression 4, T.6). Rows come with 1 bits as white, whatever the page says of its
/// sense; bits behind the last pixel are 1.
///
/// A row is held as the positions where its colour changes, from white at its left edge: that is
/// what the codes speak of, and what the next row of Group 4 refers to.
class CTIFReader::CDecoderHuffman : public CDecoder {
public:
    CDecoderHuffman(
        std::size_t bytesPerRow, TifStream& stream, std::uint32_t width, std::uint16_t compression);

    ImageResult DecodeLine(std::uint8_t* row) override;
    ImageResult StartStrip() override;

private:
    struct Changes {
        std::unique_ptr<std::uint32_t[]> positions;
        std::size_t count = 0;
    };

    ImageResult DecodeOneDimensional();
    ImageResult DecodeTwoDimensional();
    ImageResult ReadRun(bool isBlack, std::uint32_t& run);
    ImageResult ReadMode(int& mode);
    ImageResult TakeBits(unsigned count);
    std::uint64_t BitsAhead();
    void ByteAlign();
    ImageResult EndRun(std::uint32_t position);
    void EndFailedRow(std::uint32_t position);
    void Draw(std::uint8_t* row) const;

    ImageResult (CDecoderHuffman::*m_decodeRow)();
    std::uint32_t m_uWidth;
    std::size_t m_uMostChanges;
    Changes m_row;
    Changes m_reference;
    unsigned m_usedBits = 0; ///< Of the stream's next byte.
};

} // namespace vireo
