#include "imagefile/CTIFReader.h"

#include "imagefile/CDecoder.h"
#include "imagefile/CDecoderHuffman.h"
#include "imagefile/CDecoderLZW.h"
#include "imagefile/TifEntry.h"
#include "imagefile/TifPredictor.h"

#include <algorithm>
#include <cassert>
#include <unordered_set>

namespace vireo {

namespace {

constexpr std::uint16_t kVersion = 42;
constexpr std::uint32_t kMaxPages = 65'535;

void Invert(std::uint8_t* row, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        row[i] = static_cast<std::uint8_t>(~row[i]);
}

} // namespace

CTIFReader::CTIFReader()
    : m_Stream([this](std::uint64_t offset, std::span<std::uint8_t> into) {
          return m_File.ReadAt(offset, into);
      })
{
}

CTIFReader::~CTIFReader() = default;

ImageResult CTIFReader::Open(std::uint32_t& rows, const std::filesystem::path& iccFile)
{
    assert(m_ptrReceiver);
    CloseFile();
    ForgetPage();
    if (const ImageResult result = OpenFile(iccFile); result != ImageResult::Ok) {
        m_ptrDecoder.reset();
        return result;
    }
    rows = m_uHeight;
    return m_ptrReceiver->BeginImage(m_eDepth, m_uWidth, m_uHeight, m_uResolution, 0, 0);
}

ImageResult CTIFReader::OpenFile(const std::filesystem::path& iccFile)
{
    if (m_File.Open(m_FileName, PositionalFile::Sharing::ReadersOnly) != FileStatus::Ok)
        return ImageResult::CantOpenTif;
    ByteOrder order = ByteOrder::Little;
    if (const ImageResult result = ReadHeader(order); result != ImageResult::Ok)
        return result;
    return WalkPages(order, iccFile);
}

ImageResult CTIFReader::ReadHeader(ByteOrder& order)
{
    std::uint8_t header[4];
    const std::size_t count = m_File.ReadAt(0, header);
    if (count < 2)
        return ImageResult::CantReadTif;
    const bool isLittle = header[0] == 'I' && header[1] == 'I';
    const bool isBig = header[0] == 'M' && header[1] == 'M';
    if (!isLittle && !isBig)
        return ImageResult::TifFormatError;
    if (count < sizeof(header))
        return ImageResult::CantReadTif;
    order = isLittle ? ByteOrder::Little : ByteOrder::Big;
    const unsigned version = isLittle ? header[2] + header[3] * 256U : header[2] * 256U + header[3];
    return version == kVersion ? ImageResult::Ok : ImageResult::TifFormatError;
}

/// The whole chain is walked, since only that tells the number of pages.
ImageResult CTIFReader::WalkPages(ByteOrder order, const std::filesystem::path& iccFile)
{
    constexpr std::uint64_t kFirstPageOffset = 4;
    std::unordered_set<std::uint64_t> passed;
    for (std::uint64_t position = kFirstPageOffset;;) {
        std::uint8_t bytes[4];
        if (m_File.ReadAt(position, bytes) != sizeof(bytes))
            return ImageResult::CantReadTif;
        position = *ByteReader(bytes, order).ReadU32();
        if (position == 0)
            return m_uPage <= m_uPages && m_uPage != 0 ? ImageResult::Ok
                                                       : ImageResult::TifFormatError;
        if (!passed.insert(position).second || m_uPages == kMaxPages)
            return ImageResult::TifFormatError;
        ++m_uPages;
        if (m_uPages == m_uPage) {
            const ImageResult result = TakePage(order, position, iccFile);
            if (result != ImageResult::Ok)
                return result;
            continue;
        }
        std::uint8_t entries[2];
        if (m_File.ReadAt(position, entries) != sizeof(entries))
            return ImageResult::CantReadTif;
        position += sizeof(entries)
            + std::uint64_t{TifEntry::kBytes} * *ByteReader(entries, order).ReadU16();
    }
}

ImageResult CTIFReader::TakePage(
    ByteOrder order, std::uint64_t& position, const std::filesystem::path& iccFile)
{
    const ImageResult result = ReadTifPage(m_File, order, position, iccFile, m_Page);
    m_eDepth = m_Page.depth;
    m_uHeight = m_Page.height;
    m_uWidth = m_Page.width;
    m_uResolution = m_Page.resolution;
    m_uColorMapEntries = m_Page.colorMapEntries;
    if (result != ImageResult::Ok)
        return result;
    m_uRowBytes = static_cast<std::size_t>(BytesPerRow(m_eDepth, m_uWidth));
    MakeDecoder();
    return ImageResult::Ok;
}

/// Whether the page's 0 bits are white; those of rows are black.
bool CTIFReader::IsWhiteZero() const
{
    return m_eDepth == ColorDepth::Bilevel && m_Page.photometric == TifPage::kWhiteIsZero;
}

void CTIFReader::MakeDecoder()
{
    switch (m_Page.compression) {
    case TifCompression::kNone:
        m_ptrDecoder = std::make_unique<CDecoderNone>(m_uRowBytes, m_Stream);
        break;
    case TifCompression::kPackBits:
        m_ptrDecoder = std::make_unique<CDecoderPackbit>(m_uRowBytes, m_Stream, IsWhiteZero());
        break;
    case TifCompression::kLzw:
        m_ptrDecoder = std::make_unique<CDecoderLZW>(m_uRowBytes, m_Stream);
        break;
    default:
        m_ptrDecoder =
            std::make_unique<CDecoderHuffman>(m_uRowBytes, m_Stream, m_uWidth, m_Page.compression);
    }
}

/// What the page said stays known behind the end of the file.
void CTIFReader::CloseFile()
{
    m_File.Close();
    m_Stream.Forget();
    m_Page.strips = {};
    m_ptrDecoder.reset();
}

void CTIFReader::ForgetPage()
{
    m_Page = {};
    m_eDepth = ColorDepth::Bilevel;
    m_uHeight = m_uWidth = m_uResolution = m_uColorMapEntries = 0;
    m_uPages = m_uCurrentRow = 0;
    m_uRowBytes = 0;
}

ImageResult CTIFReader::Close(std::uint32_t status)
{
    assert(m_ptrReceiver);
    CloseFile();
    return m_ptrReceiver->EndImage(status);
}

ImageResult CTIFReader::ReadLine()
{
    assert(m_ptrReceiver);
    std::uint8_t* const row = m_ptrReceiver->GetLineBuffer();
    if (m_uCurrentRow >= m_uHeight || !m_ptrDecoder)
        return ImageResult::TifReadTooLong;
    if (m_uCurrentRow % m_Page.RowsPerStrip() == 0) {
        if (const ImageResult result = StartStrip(); result != ImageResult::Ok)
            return result;
    }
    if (m_Page.compression == TifCompression::kNone)
        m_ptrDecoder->ReadAhead({row, RowsAhead() * m_uRowBytes});
    ImageResult result = m_ptrDecoder->DecodeLine(row);
    result = FinishRow(row, result);
    ++m_uCurrentRow;
    return result == ImageResult::Ok ? m_ptrReceiver->LineDone() : result;
}

/// How many rows of the strip, from the next one on, the receiver takes in one piece.
std::size_t CTIFReader::RowsAhead() const
{
    const std::uint32_t rowsPerStrip = m_Page.RowsPerStrip();
    const std::uint32_t leftInStrip = rowsPerStrip - m_uCurrentRow % rowsPerStrip;
    return std::min({m_ptrReceiver->LinesAhead(), leftInStrip, m_uHeight - m_uCurrentRow});
}

ImageResult CTIFReader::StartStrip()
{
    const auto offset = m_Page.strips.Offset(m_File, m_uCurrentRow / m_Page.RowsPerStrip());
    if (!offset)
        return ImageResult::CantSeekTif;
    m_Stream.Seek(*offset);
    return m_ptrDecoder->StartStrip();
}

/// Undoes what was done to the row before it was coded.
ImageResult CTIFReader::FinishRow(std::uint8_t* row, ImageResult result) const
{
    if (m_Page.predictor == TifPage::kHorizontalDifferencing) {
        UndoDifferencing(m_eDepth, row, m_uWidth);
        if (m_eDepth == ColorDepth::Bilevel)
            result = ImageResult::UnsupportedTifFormat;
    }
    // The PackBits decoder has turned its bits over already; the Huffman decoder makes white of 1
    // bits whatever the page says.
    const bool isTurned = m_Page.compression == TifCompression::kPackBits
        || TifCompression::IsCcitt(m_Page.compression);
    if (IsWhiteZero() && !isTurned)
        Invert(row, m_uRowBytes);
    return result;
}

} // namespace vireo
