#include "imagefile/TifStream.h"

#include "imagefile/TifBits.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <new>
#include <utility>

namespace vireo {

namespace {

/// Bytes of the source lie in memory at the same place of a page as in the source. Processors copy
/// slowly to where addresses are a little ahead of the source's in this respect: reading a cached
/// file went at 2.3 instead of 9 GB/s.
constexpr std::size_t kPageBytes = 4096;
static_assert(TifStream::kMostKept % kPageBytes == 0);

std::uint8_t* AllocateAligned(std::size_t bytes)
{
    return static_cast<std::uint8_t*>(::operator new (bytes, std::align_val_t{kPageBytes}));
}

} // namespace

void TifStream::FreeAligned::operator()(std::uint8_t* memory) const
{
    ::operator delete (memory, std::align_val_t{kPageBytes});
}

TifStream::TifStream(Source source, std::size_t windowBytes)
    : m_source(std::move(source)),
      m_windowBytes(windowBytes),
      m_memory(AllocateAligned(kMostKept + windowBytes + kPageBytes + kSlackBytes))
{
    Forget();
}

void TifStream::Forget()
{
    m_endOffset = 0;
    m_begin = m_next = m_end = kMostKept;
    m_atEnd = false;
    std::memset(m_memory.get() + m_end, 0, kSlackBytes);
}

void TifStream::Seek(std::uint64_t offset)
{
    // The next strip mostly begins where the last one ended, with its first bytes at hand.
    const std::uint64_t back = m_endOffset - offset;
    if (offset <= m_endOffset && back <= m_end - m_begin) {
        m_next = m_end - static_cast<std::size_t>(back);
        return;
    }
    Forget();
    m_endOffset = offset;
}

bool TifStream::Refill()
{
    assert(Ahead() <= kMostKept);
    if (m_atEnd)
        return false;
    const std::size_t kept = Ahead();
    const std::size_t inPage = (m_endOffset + 2048) % std::min(kPageBytes, m_windowBytes);
    const std::size_t place = kMostKept + inPage;
    std::memmove(m_memory.get() + place - kept, Next(), kept);
    const std::size_t room = m_windowBytes - inPage;
    const std::size_t count = m_source(m_endOffset, {m_memory.get() + place, room});
    m_begin = m_next = place - kept;
    m_end = place + count;
    m_endOffset += count;
    m_atEnd = count < room;
    std::memset(m_memory.get() + m_end, 0, kSlackBytes);
    return count != 0;
}

std::size_t TifStream::Read(std::span<std::uint8_t> into)
{
    std::size_t done = 0;
    for (;;) {
        const std::size_t count = std::min(into.size() - done, Ahead());
        CopyInPieces(into.data() + done, Next(), count);
        Skip(count);
        done += count;
        if (done == into.size())
            return done;
        const std::span<std::uint8_t> rest = into.subspan(done);
        if (IsWorthReadingInto(rest))
            return done + ReadInto(rest);
        if (!Refill())
            return done;
    }
}

/// Whether bytes that are not at hand are better read straight into a buffer than through the
/// window: when there are many, and the buffer lies well, see kPageBytes.
bool TifStream::IsWorthReadingInto(std::span<const std::uint8_t> into) const
{
    constexpr std::size_t kFewBytes = 8192; // About what a call of the system costs.
    constexpr std::size_t kFarEnough = 1024;
    const std::uint64_t ahead = reinterpret_cast<std::uintptr_t>(into.data()) - m_endOffset;
    return !m_atEnd && into.size() >= kFewBytes && ahead % kPageBytes >= kFarEnough;
}

std::size_t TifStream::ReadInto(std::span<std::uint8_t> into)
{
    const std::size_t count = m_source(m_endOffset, into);
    const std::uint64_t end = m_endOffset + count;
    Forget();
    m_endOffset = end;
    m_atEnd = count < into.size();
    return count;
}

} // namespace vireo
