#include "imagefile/CDecoder.h"

#include <cstring>

namespace vireo {

ImageResult CTIFReader::CDecoderPackbit::DecodeLine(std::uint8_t* row)
{
    constexpr std::size_t kLongestChunk = 129; ///< A control byte and 128 bytes.
    constexpr unsigned kNothing = 128;
    std::size_t room = m_uBytesPerRow;
    while (room != 0) {
        if (m_Stream.Ahead() < kLongestChunk)
            m_Stream.Refill();
        const std::uint8_t* const chunk = m_Stream.Next();
        const std::size_t ahead = m_Stream.Ahead();
        if (ahead == 0)
            return ImageResult::CantReadTif;
        const unsigned control = chunk[0];
        m_Stream.Skip(1);
        if (control == kNothing)
            continue;
        const bool isRun = control > kNothing;
        const std::size_t count = isRun ? 257 - control : control + 1;
        if (count > room)
            return ImageResult::TifFormatError;
        const std::size_t taken = isRun ? 1 : count;
        if (ahead - 1 < taken)
            return ImageResult::CantReadTif;
        if (isRun)
            std::memset(row, chunk[1], count);
        else
            std::memcpy(row, chunk + 1, count);
        m_Stream.Skip(taken);
        row += count;
        room -= count;
    }
    return ImageResult::Ok;
}

} // namespace vireo
