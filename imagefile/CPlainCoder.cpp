#include "imagefile/CPlainCoder.h"

namespace vireo {

ImageResult CPlainCoder::BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t,
    std::uint32_t, std::uint32_t, std::uint32_t)
{
    if (depth > ColorDepth::Rgb16)
        return ImageResult::InvalidTiffArguments;
    return BeginRows(depth, width);
}

std::uint8_t* CPlainCoder::GetLineBuffer()
{
    return RowBytes() <= CTIFOutput::kBufferBytes ? Output().Reserve(RowBytes())
                                                  : CTIFCoder::GetLineBuffer();
}

ImageResult CPlainCoder::LineDone()
{
    if (RowBytes() <= CTIFOutput::kBufferBytes)
        Output().AdvanceTo(Output().Reserve(RowBytes()) + RowBytes());
    else
        Output().Write({Row(), RowBytes()});
    return Output().Result();
}

} // namespace vireo
