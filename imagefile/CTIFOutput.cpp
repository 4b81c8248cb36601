#include "imagefile/CTIFOutput.h"

#include <cstring>

namespace vireo {

void CTIFOutput::WriteThrough(std::span<const std::uint8_t> bytes)
{
    if (m_status != FileStatus::Ok || bytes.empty())
        return;
    if (bytes.size() > m_mostBytes - m_written)
        m_status = FileStatus::TooLarge;
    else
        m_status = m_target.Write(bytes);
    if (m_status == FileStatus::Ok)
        m_written += bytes.size();
}

void CTIFOutput::WriteBuffer()
{
    WriteThrough(std::span(m_buffer).first(m_used));
    m_used = 0;
}

void CTIFOutput::Write(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() > kBufferBytes) {
        WriteBuffer();
        WriteThrough(bytes);
        return;
    }
    std::uint8_t* const place = Reserve(bytes.size());
    std::memcpy(place, bytes.data(), bytes.size());
    AdvanceTo(place + bytes.size());
}

ImageResult CTIFOutput::Flush()
{
    WriteBuffer();
    return Result();
}

} // namespace vireo
