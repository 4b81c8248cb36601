#include "app/RecentFiles.h"

#include "platform/AtomicFile.h"
#include "platform/Path.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace vireo {

namespace {
/// Ten of the longest paths that any system allows.
constexpr std::size_t kMaxListBytes = 512 * 1024;

std::string_view TakeLine(std::string_view& text)
{
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}
} // namespace

RecentFiles::RecentFiles(std::filesystem::path listFile) : m_listFile(std::move(listFile)) { }

FileStatus RecentFiles::Load()
{
    if (m_listFile.empty())
        return FileStatus::Ok;
    std::string content;
    const FileStatus status = ReadWholeFile(m_listFile, kMaxListBytes, content);
    if (status != FileStatus::Ok && status != FileStatus::NotFound)
        return status;
    m_files.clear();
    for (std::string_view rest = content; !rest.empty() && m_files.size() < kMaxFiles;) {
        const auto file = PathFromUtf8(TakeLine(rest));
        if (IsFullPath(file) && std::ranges::find(m_files, file) == m_files.end())
            m_files.push_back(file);
    }
    return FileStatus::Ok;
}

FileStatus RecentFiles::Add(const std::filesystem::path& file)
{
    const auto normal = FullPath(file);
    if (Utf8FromPath(normal).find_first_of("\r\n") != std::string::npos)
        return FileStatus::Ok;
    // A list that cannot be read is started anew: it holds nothing that cannot be missed.
    static_cast<void>(Load());
    std::erase(m_files, normal);
    m_files.insert(m_files.begin(), normal);
    m_files.resize(std::min(m_files.size(), kMaxFiles));
    return Save();
}

FileStatus RecentFiles::Remove(const std::filesystem::path& file)
{
    static_cast<void>(Load());
    std::erase(m_files, file);
    return Save();
}

FileStatus RecentFiles::Save() const
{
    if (m_listFile.empty())
        return FileStatus::Ok;
    std::error_code error;
    std::filesystem::create_directories(m_listFile.parent_path(), error);
    std::string content;
    for (const auto& file : m_files)
        content += Utf8FromPath(file) + '\n';
    return WriteFileAtomically(m_listFile, content);
}

} // namespace vireo
