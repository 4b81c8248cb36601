#pragma once

#include "imagefile/CTIFTarget.h"
#include "imagefile/ImageResult.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>

namespace vireo {

/// The stream that the coders write to: a buffer that goes to the target whenever it is full. The
/// first failure is kept; what is written after it is dropped, so coders need not ask each time.
class CTIFOutput {
public:
    static constexpr std::size_t kBufferBytes = 10240;
    /// So many bytes behind a reserved place may be overwritten with rubbish; it lets coders store
    /// whole words and copy whole blocks.
    static constexpr std::size_t kSlackBytes = 64;
    /// Offsets in a TIFF have 32 bits.
    static constexpr std::uint64_t kMostBytes = std::numeric_limits<std::uint32_t>::max();

    /// The target must outlive the stream. A stream longer than `mostBytes` is
    /// FileStatus::TooLarge.
    explicit CTIFOutput(CTIFTarget& target, std::uint64_t mostBytes = kMostBytes)
        : m_target(target),
          m_mostBytes(mostBytes)
    {
    }

    /// A place for up to `bytes` bytes, at most kBufferBytes; AdvanceTo tells where they ended.
    std::uint8_t* Reserve(std::size_t bytes)
    {
        if (kBufferBytes - m_used < bytes)
            WriteBuffer();
        return m_buffer.data() + m_used;
    }
    void AdvanceTo(const std::uint8_t* end)
    {
        m_used = static_cast<std::size_t>(end - m_buffer.data());
    }

    void Write(std::span<const std::uint8_t> bytes);
    /// Hands all that is buffered to the target.
    ImageResult Flush();

    /// Bytes written since the start.
    std::uint64_t Position() const { return m_written + m_used; }
    /// Ok, or CantWriteTif from the first failure on.
    ImageResult Result() const
    {
        return m_status == FileStatus::Ok ? ImageResult::Ok : ImageResult::CantWriteTif;
    }
    /// Why writing failed.
    FileStatus Status() const { return m_status; }

private:
    void WriteBuffer();
    void WriteThrough(std::span<const std::uint8_t> bytes);

    CTIFTarget& m_target;
    const std::uint64_t m_mostBytes;
    std::uint64_t m_written = 0;
    std::size_t m_used = 0;
    FileStatus m_status = FileStatus::Ok;
    std::array<std::uint8_t, kBufferBytes + kSlackBytes> m_buffer;
};

} // namespace vireo
