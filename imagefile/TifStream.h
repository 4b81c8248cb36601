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

    static constexpr std::size_t kWindowBytes = 128 * 1024;
    static constexpr std::size_t kSlackBytes = 64;
    /// So many bytes that are still at hand a refill can keep.
    static constexpr std::size_t kMostKept = 4096;

    /// The window's size is a power of two. A small one is for tests, which try every place where
    /// it can end.
    explicit TifStream(Source source, std::size_t windowBytes = kWindowBytes);

    /// Goes on at an offset; beyond the end nothing can be read.
    void Seek(std::uint64_t offset);

    /// Drops what was read: the source is another one.
    void Forget();

    /// The bytes that are at hand, from the position on.
    const std::uint8_t* Next() const { return m_memory.get() + m_next; }
    std::size_t Ahead() const { return m_end - m_next; }
    /// Moves on by bytes that are at hand.
    void Skip(std::size_t count) { m_next += count; }

    /// Puts more bytes at hand. At most kMostKept may be. Returns false when there are no more.
    bool Refill();

    /// Fills a buffer and moves on; returns how many bytes there were.
    std::size_t Read(std::span<std::uint8_t> into);

private:
    struct FreeAligned {
        void operator()(std::uint8_t* memory) const;
    };

    bool IsWorthReadingInto(std::span<const std::uint8_t> into) const;
    std::size_t ReadInto(std::span<std::uint8_t> into);

    Source m_source;
    std::size_t m_windowBytes;
    std::unique_ptr<std::uint8_t[], FreeAligned> m_memory; ///< kMostKept, window, slack.
    std::uint64_t m_endOffset = 0;                         ///< In the source, of m_end.
    std::size_t m_begin = kMostKept; ///< Bytes from here to m_end are the source's.
    std::size_t m_next = kMostKept;
    std::size_t m_end = kMostKept;
    bool m_atEnd = false; ///< The source has nothing behind m_end.
};

} // namespace vireo
