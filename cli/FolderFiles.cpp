#include "cli/FolderFiles.h"

#include "platform/AtomicFile.h"
#include "platform/Path.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace vireo {

void NameList::Clear()
{
    m_text.clear();
    m_ranges.clear();
}

void NameList::Add(std::string_view name)
{
    m_ranges.push_back({m_text.size(), name.size()});
    m_text.append(name);
}

void NameList::Sort()
{
    const std::string_view text = m_text;
    std::ranges::sort(m_ranges, {},
        [text](const Range& range) { return text.substr(range.start, range.length); });
}

std::string_view NameList::At(std::size_t position) const
{
    const Range range = m_ranges[position];
    return std::string_view(m_text).substr(range.start, range.length);
}

namespace {

bool EndsWithSeparator(const std::string& folder)
{
    constexpr auto kOther = static_cast<char>(std::filesystem::path::preferred_separator);
    return folder.ends_with('/') || folder.ends_with(kOther);
}

FileStatus StatusFrom(const std::error_code& error)
{
    if (!error)
        return FileStatus::Ok;
    if (error == std::errc::permission_denied)
        return FileStatus::AccessDenied;
    return error == std::errc::no_such_file_or_directory ? FileStatus::NotFound
                                                         : FileStatus::Failed;
}

} // namespace

FileStatus FolderFiles::List(const std::string& folder)
{
    m_prefix = EndsWithSeparator(folder) ? folder : folder + '/';
    m_names.Clear();
    m_folders.Clear();
    m_next = 0;
    std::error_code error;
    std::filesystem::directory_iterator entry(PathFromUtf8(folder), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code unknown;
        const bool isFolder = entry->is_directory(unknown);
        const std::string name = Utf8FromPath(entry->path().filename());
        if (!AtomicFile::IsTemporary(name))
            (isFolder ? m_folders : m_names).Add(name);
    }
    m_names.Sort();
    m_folders.Sort();
    return StatusFrom(error);
}

std::optional<std::string> FolderFiles::Next()
{
    if (m_next == m_names.Size())
        return std::nullopt;
    return m_prefix + std::string(m_names.At(m_next++));
}

void FolderFiles::TakeFolders(std::vector<std::string>& folders)
{
    for (std::size_t i = m_folders.Size(); i > 0; --i)
        folders.push_back(m_prefix + std::string(m_folders.At(i - 1)));
    m_folders.Clear();
}

} // namespace vireo
