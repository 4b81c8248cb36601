#pragma once

#include "imagefile/CTIFReader.h"

#include <memory>

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

    ImageResult DecodeLine(std::uint8_t* row) override;
};

/// PackBits (compression 32773): runs and literals, each within one row.
class CTIFReader::CDecoderPackbit : public CDecoder {
public:
    CDecoderPackbit(std::size_t bytesPerRow, TifStream& stream);

    ImageResult DecodeLine(std::uint8_t* row) override;

private:
    std::size_t DecodeDirectly(std::span<std::uint8_t> row);
    std::size_t DecodePiece(std::size_t left, ImageResult& result);

    std::unique_ptr<std::uint8_t[]> m_piece;
};

} // namespace vireo
