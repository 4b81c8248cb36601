#include "bench/TiffPicture.h"

#include "imagefile/CLittleEndianFilter.h"

namespace vireo {

ImageResult TiffPicture::Decode(
    const std::filesystem::path& file, std::uint32_t page, Samples samples)
{
    CTIFReader reader;
    reader.SetFile(file);
    reader.SetPage(page);
    CLittleEndianFilter filter(reader, *this);
    CImageReceiver& direct = *this;
    reader.SetReceiver(samples == Samples::LittleEndian ? filter : direct);
    std::uint32_t rows = 0;
    if (const ImageResult result = reader.Open(rows); result != ImageResult::Ok)
        return result;
    m_colorMap.reset();
    if (reader.ColorMapEntries() != 0)
        m_colorMap = reader.Entries().colorMap;
    for (; rows != 0; --rows) {
        if (const ImageResult result = reader.ReadLine(); result != ImageResult::Ok)
            return result;
    }
    return reader.Close(0);
}

ImageResult TiffPicture::BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t height,
    std::uint32_t resolution, std::uint32_t, std::uint32_t)
{
    m_depth = depth;
    m_width = width;
    m_height = height;
    m_resolution = resolution;
    m_rowBytes = static_cast<std::size_t>(BytesPerRow(depth, width));
    m_row = 0;
    m_memory.resize(m_rowBytes * height + kPageBytes);
    return ImageResult::Ok;
}

std::uint8_t* TiffPicture::GetLineBuffer()
{
    return m_memory.data() + (Row(m_row) - m_memory.data());
}

std::uint32_t TiffPicture::LinesAhead() const
{
    return m_height - static_cast<std::uint32_t>(m_row);
}

ImageResult TiffPicture::LineDone()
{
    ++m_row;
    return ImageResult::Ok;
}

} // namespace vireo
