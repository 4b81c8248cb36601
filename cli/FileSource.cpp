#include "cli/FileSource.h"

#include "platform/Path.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace vireo {

std::optional<FileSource::Item> FileSource::Next()
{
    for (;;) {
        if (auto file = m_files.Next()) {
            if (IsOutput(*file))
                continue;
            return Item{std::move(*file), {}};
        }
        if (!m_folders.empty()) {
            std::string folder = m_folders.back();
            if (std::string failure = EnterFolder(); !failure.empty())
                return Item{std::move(folder), std::move(failure)};
            continue;
        }
        if (m_nextArgument == m_arguments.size())
            return std::nullopt;
        const std::string& argument = m_arguments[m_nextArgument++];
        if (!StandsForFiles(argument))
            return Item{argument, {}};
        m_entered.clear();
        m_folders.push_back(argument);
    }
}

std::optional<std::size_t> FileSource::Count() const
{
    const bool anyFolder = std::any_of(m_arguments.begin(), m_arguments.end(),
        [this](const std::string& argument) { return StandsForFiles(argument); });
    return anyFolder ? std::nullopt : std::optional(m_arguments.size());
}

bool FileSource::IsOutput(const std::string& file) const
{
    return !m_output.empty() && IsSameFile(PathFromUtf8(file), m_output);
}

bool FileSource::StandsForFiles(const std::string& argument) const
{
    std::error_code error;
    return m_rule != FolderRule::Refused
        && std::filesystem::is_directory(PathFromUtf8(argument), error);
}

/// Lists the next folder; the reason when it cannot.
std::string FileSource::EnterFolder()
{
    const std::string folder = std::move(m_folders.back());
    m_folders.pop_back();
    FileIdentity identity;
    FileStatus status = ReadIdentity(PathFromUtf8(folder), identity);
    if (status == FileStatus::Ok && m_entered.insert(identity).second)
        status = m_files.List(folder);
    if (m_rule == FolderRule::AllBelow)
        m_files.TakeFolders(m_folders);
    return status == FileStatus::Ok ? std::string() : std::string(Describe(status));
}

} // namespace vireo
