#pragma once

#include "imagefile/CTIFCoder.h"
#include "imagefile/CcittChanges.h"

namespace vireo {

class CcittBits;

/// Codes bilevel rows, in which 1 bits are white, by ITU-T T.4 and T.6, most significant bit first.
/// The end of facsimile block, two end-of-line codes, ends every picture.
class CHuffmanCoder : public CTIFCoder {
public:
    enum class Scheme : unsigned {
        ModifiedHuffman = 0, ///< Runs; each row begins on a byte (TIFF compression 2).
        /// T.4 with K = 4: each row begins with an end-of-line code and a bit, which is 1 for every
        /// fourth row, coded by its runs, and 0 for rows coded against the one above.
        Group3 = 1,
        Group4 = 2, ///< T.6: all rows coded against the one above (TIFF compression 4).
    };

    CHuffmanCoder(CTIFOutput& output, Scheme scheme) : CTIFCoder(output), m_scheme(scheme) { }

    /// Takes bilevel pictures of less than 2^31 pixels a row; InvalidHuffmanCoderArguments for
    /// others and for other schemes.
    ImageResult BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t height,
        std::uint32_t resolution, std::uint32_t reserved1, std::uint32_t reserved2) override;
    ImageResult LineDone() override;
    ImageResult EndImage(std::uint32_t status) override;

private:
    void CodeRuns(CcittBits& given);
    void CodeByReference(CcittBits& bits);
    void CodeAgainstReference(CcittBits& given) const;

    const Scheme m_scheme;
    std::int32_t m_width = 0;
    std::uint32_t m_rowNumber = 0;
    std::vector<std::uint8_t> m_reference; ///< The row above, white at first.
    CcittChanges m_changes;                ///< Of the row.
    CcittChanges m_referenceChanges;       ///< Of the last row that was another one.
    std::uint64_t m_bits = 0;              ///< The lowest m_bitCount bits are still to be written.
    unsigned m_bitCount = 0;
};

} // namespace vireo
