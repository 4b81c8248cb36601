#include "imagefile/CDecoder.h"

namespace vireo {

ImageResult CTIFReader::CDecoderNone::DecodeLine(std::uint8_t* row)
{
    return m_Stream.Read({row, m_uBytesPerRow}) == m_uBytesPerRow ? ImageResult::Ok
                                                                  : ImageResult::CantReadTif;
}

} // namespace vireo
