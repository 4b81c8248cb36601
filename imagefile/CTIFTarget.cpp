#include "imagefile/CTIFTarget.h"

#include "platform/AtomicFile.h"

#include <utility>

namespace vireo {

namespace {

class FileTarget : public CTIFTarget {
public:
    explicit FileTarget(std::filesystem::path file) : m_path(std::move(file)) { }

    FileStatus Open() override { return m_file.Open(m_path); }
    FileStatus Write(std::span<const std::uint8_t> bytes) override { return m_file.Write(bytes); }
    FileStatus Overwrite(std::uint64_t offset, std::span<const std::uint8_t> bytes) override
    {
        return m_file.Overwrite(offset, bytes);
    }
    FileStatus Commit() override { return m_file.Commit(AtomicFile::Flush::WhenReplacing); }

private:
    std::filesystem::path m_path;
    AtomicFile m_file;
};

} // namespace

std::unique_ptr<CTIFTarget> MakeTIFTarget(std::filesystem::path file)
{
    return std::make_unique<FileTarget>(std::move(file));
}

} // namespace vireo
