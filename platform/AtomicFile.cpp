#include "platform/AtomicFile.h"

#include "platform/Text.h"

#include <random>

namespace vireo {

std::filesystem::path AtomicFile::TemporaryName(const std::filesystem::path& target)
{
    std::random_device random;
    return target.parent_path() / Format(".vireo-%08x%08x.tmp", random(), random());
}

FileStatus AtomicFile::Write(std::string_view text)
{
    return Write(std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
}

FileStatus AtomicFile::Write(std::span<const std::uint8_t> bytes)
{
    constexpr std::size_t kBufferSize = std::size_t{256} * 1024;
    if (m_status != FileStatus::Ok)
        return m_status;
    if (bytes.size() >= kBufferSize)
        return FlushBuffer() == FileStatus::Ok ? WriteThrough(bytes) : m_status;
    m_buffer.insert(m_buffer.end(), bytes.begin(), bytes.end());
    return m_buffer.size() < kBufferSize ? FileStatus::Ok : FlushBuffer();
}

FileStatus AtomicFile::FlushBuffer()
{
    const FileStatus status = WriteThrough(m_buffer);
    m_buffer.clear();
    return status;
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
