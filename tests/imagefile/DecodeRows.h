#pragma once

#include "imagefile/CDecoderHuffman.h"
#include "imagefile/CDecoderLZW.h"

#include <algorithm>
#include <iomanip>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace vireo {

/// A row and what decoding it came to.
struct DecodedRow {
    std::string bytes;
    ImageResult result = ImageResult::Ok;

    friend bool operator==(const DecodedRow&, const DecodedRow&) = default;
    friend void PrintTo(const DecodedRow& row, std::ostream* out)
    {
        for (const char byte : row.bytes)
            *out << std::hex << std::setw(2) << std::setfill('0') << (byte & 0xff);
        *out << ' ' << static_cast<std::uint32_t>(row.result) << std::dec;
    }
};

/// The smallest window that each decoder works with; the one for CCITT codes is too small for its
/// fast way, so that what it decodes is decoded code by code.
constexpr std::size_t SmallWindow(std::uint16_t compression)
{
    return compression == TifCompression::kPackBits ? 256 : 16;
}

/// Decodes rows of one strip from bytes in memory. Line buffers are filled with `fill` first. The
/// width is in pixels of one bit. PackBits can turn all bits over.
inline std::vector<DecodedRow> DecodeRows(std::uint16_t compression, std::uint32_t width,
    const std::string& strip, std::size_t rows, std::size_t window = TifStream::kWindowBytes,
    char fill = 'z', bool flipsBits = false)
{
    TifStream stream(
        [&strip](std::uint64_t offset, std::span<std::uint8_t> into) {
            const std::size_t from = std::min<std::size_t>(strip.size(), offset);
            const std::size_t count = std::min(into.size(), strip.size() - from);
            std::copy_n(strip.begin() + static_cast<std::ptrdiff_t>(from), count, into.begin());
            return count;
        },
        window);
    const std::size_t rowBytes = (width + 7) / 8;
    std::unique_ptr<CTIFReader::CDecoder> decoder;
    if (compression == TifCompression::kPackBits)
        decoder = std::make_unique<CTIFReader::CDecoderPackbit>(rowBytes, stream, flipsBits);
    else if (compression == TifCompression::kLzw)
        decoder = std::make_unique<CTIFReader::CDecoderLZW>(rowBytes, stream);
    else
        decoder =
            std::make_unique<CTIFReader::CDecoderHuffman>(rowBytes, stream, width, compression);
    std::vector<DecodedRow> decoded;
    if (decoder->StartStrip() != ImageResult::Ok)
        return decoded;
    for (std::size_t row = 0; row < rows; ++row) {
        std::string bytes(rowBytes, fill);
        const ImageResult result =
            decoder->DecodeLine(reinterpret_cast<std::uint8_t*>(bytes.data()));
        decoded.push_back({std::move(bytes), result});
    }
    return decoded;
}

} // namespace vireo
