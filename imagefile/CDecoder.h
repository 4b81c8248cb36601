#pragma once

#include "imagefile/CTIFReader.h"

#include <memory>
#include <span>

namespace vireo {

/// Decodes the rows of one page from its strips. The reader moves the stream to a strip and calls
/// StartStrip, then DecodeLine once a row.
class CTIFReader::CDecoder {
public:
    /// The stream is not owned.
    CDecoder(std::size_t bytesPerRow, TifStream& stream)
        : m_uBytesPerRow(bytesPerRow),
          m_Stream(stream)
    {
    }
    CDecoder(const CDecoder&) = delete;
    CDecoder& operator=(const CDecoder&) = delete;
    virtual ~CDecoder() = default;

    /// Says where the next rows of the strip may be written one behind the other before they are
    /// asked for, which is worth something where decoding is no more than reading.
    virtual void ReadAhead(std::span<std::uint8_t> /*rows*/) { }
    /// Decodes the next row into a buffer of the bytes of one row. What is not decoded stays as it
    /// was.
    virtual ImageResult DecodeLine(std::uint8_t* row) = 0;
    /// Forgets the strip before.
    virtual ImageResult StartStrip() { return ImageResult::Ok; }

protected:
    std::size_t m_uBytesPerRow;
    TifStream& m_Stream;
};

/// Rows that lie in the file as they are.
class CTIFReader::CDecoderNone : public CDecoder {
public:
    using CDecoder::CDecoder;

    void ReadAhead(std::span<std::uint8_t> rows) override;
    ImageResult DecodeLine(std::uint8_t* row) override;
    ImageResult StartStrip() override;

private:
    std::span<const std::uint8_t> m_ahead; ///< Of the next rows, what has been read already.
};

/// PackBits (compression 32773): runs and literals, each within one row.
class CTIFReader::CDecoderPackbit : public CDecoder {
public:
    /// The bits of all that is decoded may be turned over at once.
    CDecoderPackbit(std::size_t bytesPerRow, TifStream& stream, bool flipsBits = false);

    ImageResult DecodeLine(std::uint8_t* row) override;

private:
    std::size_t DecodeDirectly(std::span<std::uint8_t> row);
    std::size_t DecodePiece(std::size_t left, ImageResult& result);

    std::uint8_t Flip() const { return m_flipsBits ? 0xff : 0; }

    bool m_flipsBits;
    std::unique_ptr<std::uint8_t[]> m_piece;
};

} // namespace vireo
