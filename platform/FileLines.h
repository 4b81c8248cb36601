#pragma once

#include "platform/PositionalFile.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace vireo {

/// The lines of a text file of any size, in one pass: the file is read once, through a window of
/// fixed size. Lines end at line feeds; what follows the last one is a line too. A carriage return
/// stays part of its line.
class FileLines {
public:
    /// Of a longer line only so many bytes are given.
    static constexpr std::size_t kMostLineBytes = std::size_t{64} * 1024;
    /// Fits into the processor's second cache together with what is made of the lines.
    static constexpr std::size_t kWindowBytes = 4 * kMostLineBytes;

    /// The file must outlive this.
    explicit FileLines(const PositionalFile& file) : m_file(file), m_window(kWindowBytes) { }

    /// The next line without its line feed, valid until the next call; nothing at the end.
    std::optional<std::string_view> Next();

    /// Bytes of the file that have been read so far.
    std::uint64_t BytesRead() const { return m_offset; }

private:
    std::string_view Unread() const;
    bool Fill();
    void SkipCutLine();

    const PositionalFile& m_file;
    std::vector<std::uint8_t> m_window;
    std::size_t m_begin = 0; ///< Bytes m_begin to m_end of the window are not yet given.
    std::size_t m_end = 0;
    std::uint64_t m_offset = 0; ///< Where the file goes on behind the window.
    bool m_isCut = false;       ///< The line given last goes on.
};

} // namespace vireo
