#include "imagefile/CTIFCoder.h"

namespace vireo {

ImageResult CTIFCoder::BeginRows(ColorDepth depth, std::uint32_t width)
{
    if (width == 0)
        return ImageResult::InvalidTiffArguments;
    const std::uint64_t bytes = BytesPerRow(depth, width);
    if (!AllocateZeroed(m_row, bytes + kRowPadding))
        return ImageResult::TifOutOfMemory;
    m_rowBytes = static_cast<std::size_t>(bytes);
    return m_output.Result();
}

ImageResult CTIFCoder::EndImage(std::uint32_t /*status*/)
{
    m_row = {};
    return m_output.Flush();
}

} // namespace vireo
