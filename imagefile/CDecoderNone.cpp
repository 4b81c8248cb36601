#include "imagefile/CDecoder.h"

#include <algorithm>
#include <cstring>

namespace vireo {

/// One call of the system for many rows takes two thirds of the time of one a row. A megabyte is
/// enough for that, and what shows progress or wants to stop need not wait.
void CTIFReader::CDecoderNone::ReadAhead(std::span<std::uint8_t> rows)
{
    constexpr std::size_t kMostBytes = 1024 * 1024;
    if (!m_ahead.empty())
        return;
    const std::size_t count = std::min(rows.size(), kMostBytes) / m_uBytesPerRow;
    if (count > 1)
        m_ahead = rows.first(m_Stream.Read(rows.first(count * m_uBytesPerRow)));
}

ImageResult CTIFReader::CDecoderNone::DecodeLine(std::uint8_t* row)
{
    std::size_t count = std::min(m_ahead.size(), m_uBytesPerRow);
    if (count == 0) {
        count = m_Stream.Read({row, m_uBytesPerRow});
    } else {
        // After a row that failed the receiver may want the next one in the same place.
        if (row != m_ahead.data())
            std::memmove(row, m_ahead.data(), count);
        m_ahead = m_ahead.subspan(count);
    }
    return count == m_uBytesPerRow ? ImageResult::Ok : ImageResult::CantReadTif;
}

ImageResult CTIFReader::CDecoderNone::StartStrip()
{
    m_ahead = {};
    return ImageResult::Ok;
}

} // namespace vireo
