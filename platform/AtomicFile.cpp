#include "platform/AtomicFile.h"

#include "platform/Text.h"

#include <algorithm>
#include <random>

namespace vireo {

std::filesystem::path AtomicFile::TemporaryName(const std::filesystem::path& target)
{
    std::random_device random;
    return target.parent_path() / Format(".vireo-%08x%08x.tmp", random(), random());
}

bool AtomicFile::IsTemporary(std::string_view name)
{
    constexpr std::string_view kBegin = ".vireo-";
    constexpr std::string_view kEnd = ".tmp";
    constexpr std::size_t kDigits = 16;
    return name.size() == kBegin.size() + kDigits + kEnd.size() && name.starts_with(kBegin)
        && name.ends_with(kEnd)
        && name.find_first_not_of("0123456789abcdef", kBegin.size()) == kBegin.size() + kDigits;
}

FileStatus AtomicFile::Write(std::string_view text)
{
    return Write(std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
}

FileStatus AtomicFile::Write(std::span<const std::uint8_t> bytes)
{
    // Each write costs the system some microseconds besides the copying: 512 KiB took two thirds of
    // the time of 64 KiB, and 1 MiB no less.
    constexpr std::size_t kBufferSize = std::size_t{512} * 1024;
    if (m_status != FileStatus::Ok)
        return m_status;
    if (bytes.size() > kBufferSize - m_buffer.size() && FlushBuffer() != FileStatus::Ok)
        return m_status;
    if (bytes.size() >= kBufferSize)
        return WriteThrough(bytes);
    m_buffer.reserve(kBufferSize);
    m_buffer.insert(m_buffer.end(), bytes.begin(), bytes.end());
    return FileStatus::Ok;
}

FileStatus AtomicFile::FlushBuffer()
{
    const FileStatus status = WriteThrough(m_buffer);
    m_buffer.clear();
    return status;
}

FileStatus AtomicFile::WriteFrom(
    const PositionalFile& source, std::uint64_t offset, std::uint64_t count)
{
    if (FlushBuffer() != FileStatus::Ok)
        return m_status;
    const std::uint64_t copied = CopyWithinSystem(source, offset, count);
    offset += copied;
    count -= copied;
    // What the system will not copy, and whatever is wrong, turns up here.
    constexpr std::uint64_t kPieceBytes = 1024 * 1024;
    std::vector<std::uint8_t> piece(static_cast<std::size_t>(std::min(count, kPieceBytes)));
    while (count > 0 && m_status == FileStatus::Ok) {
        const auto wanted =
            std::span(piece).first(static_cast<std::size_t>(std::min(count, kPieceBytes)));
        if (source.ReadAt(offset, wanted) < wanted.size())
            m_status = FileStatus::Failed;
        else
            static_cast<void>(WriteThrough(wanted)); // Kept in m_status.
        offset += wanted.size();
        count -= wanted.size();
    }
    return m_status;
}

bool AtomicFile::Flushes(Flush flush) const
{
    return flush == Flush::Always || (flush == Flush::WhenReplacing && m_bReplaces);
}

FileStatus WriteFileAtomically(const std::filesystem::path& target, std::string_view content)
{
    AtomicFile file;
    const FileStatus status = file.Open(target);
    if (status != FileStatus::Ok)
        return status;
    // Commit returns the failure of any write.
    static_cast<void>(file.Write(content));
    return file.Commit();
}

} // namespace vireo
