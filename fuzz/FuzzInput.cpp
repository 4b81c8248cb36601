#include "fuzz/FuzzInput.h"

#include <cstdlib>
#include <fstream>
#include <random>
#include <string>
#include <system_error>

namespace vireo {

namespace {

class ScratchFile {
public:
    ScratchFile()
        : m_path(std::filesystem::temp_directory_path()
            / ("vireo-fuzz-" + std::to_string(std::random_device()()) + ".bin"))
    {
        std::ofstream(m_path, std::ios::binary);
    }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile()
    {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }

    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

} // namespace

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

const std::filesystem::path& InputFile(std::span<const std::uint8_t> bytes)
{
    static const ScratchFile file;
    {
        // Not truncated to nothing first: file systems then wait for the disk at every close.
        std::fstream stream(file.Path(), std::ios::in | std::ios::out | std::ios::binary);
        stream.write(AsText(bytes).data(), static_cast<std::streamsize>(bytes.size()));
        Require(stream.flush().good());
    }
    // Asked first: to cut a file is slow where every call goes through another system's.
    std::error_code error;
    if (std::filesystem::file_size(file.Path(), error) != bytes.size())
        std::filesystem::resize_file(file.Path(), bytes.size(), error);
    Require(!error);
    return file.Path();
}

} // namespace vireo
