#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>

namespace vireo {

/// Bytes read forward from a position on, through a window of fixed size. Behind the last byte of
/// the window lie kSlackBytes zeros, so that a decoder may load whole words near the end.
class TifStream {
public:
    /// Reads up to as many bytes as the buffer takes from an offset on, and returns how many there
    /// were: fewer only at the end.
    using Source = std::function<std::size_t(std::uint64_t offset, std::span<std::uint8_t> into)>;

    static constexpr std::size_t kWindowBytes = 64 * 1024;
    static constexpr std::size_t kSlackBytes = 64;

    /// A small window is for tests, which try every place where it can end.
    explicit TifStream(Source source, std::size_t windowBytes = kWindowBytes);

    /// Goes on at an offset; beyond the end nothing can be read.
    void Seek(std::uint64_t offset);

    /// Drops what was read: the source is another one.
    void Forget();

    /// The bytes that are at hand, from the position on.
    const std::uint8_t* Next() const { return m_window.get() + m_next; }
    std::size_t Ahead() const { return m_end - m_next; }
    /// Moves on by bytes that are at hand.
    void Skip(std::size_t count) { m_next += count; }

    /// Puts more bytes at hand. Returns false when all bytes up to the end already are, or when
    /// none of the window is used up.
    bool Refill();

    /// Fills a buffer and moves on; returns how many bytes there were.
    std::size_t Read(std::span<std::uint8_t> into);

private:
    std::size_t TakeFromWindow(std::span<std::uint8_t> into);

    Source m_source;
    std::size_t m_windowBytes;
    std::unique_ptr<std::uint8_t[]> m_window;
    std::uint64_t m_offset = 0; ///< Of the window's first byte.
    std::size_t m_next = 0;
    std::size_t m_end = 0;
    bool m_atEnd = false; ///< The source has nothing behind the window.
};

} // namespace vireo
