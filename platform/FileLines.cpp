#include "platform/FileLines.h"

#include <algorithm>
#include <span>

namespace vireo {

std::string_view FileLines::Unread() const
{
    return {reinterpret_cast<const char*>(m_window.data()) + m_begin, m_end - m_begin};
}

/// Moves what is unread to the window's start and reads on behind it; false at the end of the file.
/// There is always room: a line is cut before it fills the window.
bool FileLines::Fill()
{
    const auto unread = std::span(m_window).subspan(m_begin, m_end - m_begin);
    std::copy(unread.begin(), unread.end(), m_window.begin());
    m_begin = 0;
    m_end = unread.size();
    const std::size_t count = m_file.ReadAt(m_offset, std::span(m_window).subspan(m_end));
    m_offset += count;
    m_end += count;
    return count > 0;
}

void FileLines::SkipCutLine()
{
    m_isCut = false;
    do {
        const std::size_t lineFeed = Unread().find('\n');
        if (lineFeed != std::string_view::npos) {
            m_begin += lineFeed + 1;
            return;
        }
        m_begin = m_end;
    } while (Fill());
}

std::optional<std::string_view> FileLines::Next()
{
    if (m_isCut)
        SkipCutLine();
    for (std::size_t searched = 0;;) {
        const std::string_view unread = Unread();
        const std::size_t lineFeed = unread.find('\n', searched);
        if (lineFeed != std::string_view::npos) {
            m_begin += lineFeed + 1;
            return unread.substr(0, std::min(lineFeed, kMostLineBytes));
        }
        if (unread.size() >= kMostLineBytes) {
            m_isCut = true;
            m_begin = m_end;
            return unread.substr(0, kMostLineBytes);
        }
        searched = unread.size();
        if (!Fill()) {
            const std::string_view last = Unread();
            m_begin = m_end;
            return last.empty() ? std::nullopt : std::optional(last);
        }
    }
}

} // namespace vireo
