#pragma once

#include "imagefile/CImageReader.h"
#include "imagefile/TifPage.h"
#include "imagefile/TifStream.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>

namespace vireo {

/// Reads one page of a TIFF file: strips, either byte order, one to six of the usual pixel formats
/// (see ColorDepth), uncompressed or coded with modified Huffman, Group 4, LZW or PackBits, with or
/// without horizontal differencing. It holds one strip offset table piece, one file window and the
/// decoder's own buffers, whatever the size of the picture.
///
/// Bilevel rows arrive with 1 bits as white. Samples of 16 bits arrive in the file's byte order.
class CTIFReader : public CImageReader {
public:
    class CDecoder;
    class CDecoderNone;
    class CDecoderPackbit;
    class CDecoderLZW;
    class CDecoderHuffman;

    CTIFReader();
    ~CTIFReader() override;

    /// Counted from 1, the default.
    void SetPage(std::uint32_t page) { m_uPage = page; }
    std::uint32_t Page() const { return m_uPage; }
    /// How many pages the last Open has found.
    std::uint32_t Pages() const { return m_uPages; }

    /// A page that is not in the file is "Tif format error", as is a chain of pages that comes back
    /// to a page it has passed.
    ImageResult Open(std::uint32_t& rows, const std::filesystem::path& iccFile = {}) override;
    /// A row that fails is passed over: the next call reads the one behind it. What a failed row
    /// does not cover is left in the line buffer as it was.
    ImageResult ReadLine() override;
    ImageResult Close(std::uint32_t status) override;

    // What the page says, by the codes that its tags have.
    std::uint16_t Compression() const { return m_Page.compression; }
    std::uint16_t Photometric() const { return m_Page.photometric; }
    std::uint16_t Predictor() const { return m_Page.predictor; }
    /// The image description, bytes as stored.
    const std::string& Description() const { return m_Page.description; }
    /// Meaningful when ColorMapEntries() is not 0.
    std::span<const TifPage::Color, 256> ColorMap() const { return m_Page.colorMap; }
    std::size_t RowBytes() const { return m_uRowBytes; }
    /// All that the page says; its strips are known while it is open.
    const TifPage& Entries() const { return m_Page; }

private:
    ImageResult OpenFile(const std::filesystem::path& iccFile);
    ImageResult ReadHeader(ByteOrder& order);
    ImageResult WalkPages(ByteOrder order, const std::filesystem::path& iccFile);
    ImageResult TakePage(
        ByteOrder order, std::uint64_t& position, const std::filesystem::path& iccFile);
    bool IsWhiteZero() const;
    void MakeDecoder();
    void CloseFile();
    void ForgetPage();
    std::size_t RowsAhead() const;
    ImageResult StartStrip();
    ImageResult FinishRow(std::uint8_t* row, ImageResult result) const;

    std::uint32_t m_uPage = 1;
    std::uint32_t m_uPages = 0;
    PositionalFile m_File;
    TifStream m_Stream;
    TifPage m_Page;
    std::uint32_t m_uCurrentRow = 0;
    std::size_t m_uRowBytes = 0;
    std::unique_ptr<CDecoder> m_ptrDecoder;
};

} // namespace vireo
