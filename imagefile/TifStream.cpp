#include "imagefile/TifStream.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace vireo {

TifStream::TifStream(Source source, std::size_t windowBytes)
    : m_source(std::move(source)),
      m_windowBytes(windowBytes),
      m_window(std::make_unique_for_overwrite<std::uint8_t[]>(windowBytes + kSlackBytes))
{
    std::memset(m_window.get(), 0, kSlackBytes);
}

void TifStream::Seek(std::uint64_t offset)
{
    // The next strip mostly begins where the last one ended, with its first bytes at hand.
    if (offset >= m_offset && offset - m_offset <= m_end) {
        m_next = static_cast<std::size_t>(offset - m_offset);
        return;
    }
    Forget();
    m_offset = offset;
}

void TifStream::Forget()
{
    m_offset = 0;
    m_next = 0;
    m_end = 0;
    m_atEnd = false;
}

bool TifStream::Refill()
{
    if (m_atEnd || (m_next == 0 && m_end == m_windowBytes))
        return false;
    const std::size_t kept = Ahead();
    std::memmove(m_window.get(), Next(), kept);
    m_offset += m_next;
    m_next = 0;
    const std::size_t room = m_windowBytes - kept;
    const std::size_t count = m_source(m_offset + kept, {m_window.get() + kept, room});
    m_end = kept + count;
    m_atEnd = count < room;
    std::memset(m_window.get() + m_end, 0, kSlackBytes);
    return count != 0;
}

std::size_t TifStream::TakeFromWindow(std::span<std::uint8_t> into)
{
    const std::size_t count = std::min(into.size(), Ahead());
    std::memcpy(into.data(), Next(), count);
    Skip(count);
    return count;
}

std::size_t TifStream::Read(std::span<std::uint8_t> into)
{
    std::size_t done = TakeFromWindow(into);
    while (done < into.size() && !m_atEnd) {
        const auto rest = into.subspan(done);
        if (rest.size() >= m_windowBytes) {
            // Large rows go to their place directly.
            const std::size_t count = m_source(m_offset + m_end, rest);
            Seek(m_offset + m_end + count);
            m_atEnd = count < rest.size();
            return done + count;
        }
        Refill();
        done += TakeFromWindow(rest);
    }
    return done;
}

} // namespace vireo
