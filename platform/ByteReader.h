#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace vireo {

/// Order of the bytes of a multi-byte number in a file.
enum class ByteOrder { Little, Big };

/// Reads numbers and byte runs from a block of outside bytes and never past its end.
///
/// A read gives the value and moves on, or gives nothing and stays where it is. The bytes are not
/// owned and must outlive the reader.
class ByteReader {
public:
    explicit ByteReader(std::span<const std::uint8_t> bytes, ByteOrder order = ByteOrder::Little)
        : m_bytes(bytes),
          m_order(order)
    {
    }

    /// Offset of the next byte from the start of the block.
    std::size_t Position() const { return m_position; }
    std::size_t Remaining() const { return m_bytes.size() - m_position; }

    /// Moves to an offset from the start; the offset just behind the last byte is allowed.
    bool Seek(std::size_t position);
    /// Moves on by a number of bytes, if there are as many.
    bool Skip(std::size_t count);

    std::optional<std::uint8_t> ReadU8();
    std::optional<std::uint16_t> ReadU16();
    std::optional<std::uint32_t> ReadU32();
    std::optional<std::uint64_t> ReadU64();
    std::optional<std::int32_t> ReadI32();
    /// The next `count` bytes, as a view into the block.
    std::optional<std::span<const std::uint8_t>> ReadBytes(std::size_t count);

private:
    template <typename Number>
    std::optional<Number> ReadNumber();

    std::span<const std::uint8_t> m_bytes;
    std::size_t m_position = 0;
    ByteOrder m_order;
};

} // namespace vireo
