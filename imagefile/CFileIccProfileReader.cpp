#include "imagefile/CFileIccProfileReader.h"

#include "platform/KnownFolders.h"

#include <limits>
#include <system_error>

namespace vireo {

namespace {

bool IsFullPath(const std::filesystem::path& name)
{
    const auto& text = name.native();
    return text.starts_with('\\') || text.starts_with('/') || (text.size() > 1 && text[1] == ':');
}

std::filesystem::path FindProfile(const std::filesystem::path& name)
{
    const auto folders = ColourProfileFolders();
    if (IsFullPath(name) || folders.empty())
        return name;
    std::error_code ignored;
    for (const std::filesystem::path& folder : folders) {
        if (std::filesystem::is_regular_file(folder / name, ignored))
            return folder / name;
    }
    return folders.front() / name;
}

} // namespace

CFileIccProfileReader::CFileIccProfileReader(const std::filesystem::path& name)
    : m_FileName(FindProfile(name))
{
}

bool CFileIccProfileReader::OpenProfile()
{
    m_uPosition = 0;
    return m_File.Open(m_FileName) != FileStatus::Ok;
}

std::uint32_t CFileIccProfileReader::GetProfileSize()
{
    std::error_code error;
    const std::uint64_t size = std::filesystem::file_size(m_FileName, error);
    return error || size > std::numeric_limits<std::uint32_t>::max()
        ? 0
        : static_cast<std::uint32_t>(size);
}

std::size_t CFileIccProfileReader::ReadProfile(std::span<std::uint8_t> buffer)
{
    const std::size_t count = m_File.ReadAt(m_uPosition, buffer);
    m_uPosition += count;
    return count;
}

int CFileIccProfileReader::CloseProfile()
{
    m_File.Close();
    return 0;
}

} // namespace vireo
