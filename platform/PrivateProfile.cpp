#include "platform/PrivateProfile.h"

#include "platform/AtomicFile.h"
#include "platform/ProfileText.h"
#include "platform/Text.h"

namespace vireo {

namespace {

constexpr std::size_t kLargestFile = std::size_t{1} << 20;

FileStatus ReadProfile(const std::filesystem::path& file, ProfileText& profile)
{
    std::string text;
    const FileStatus status = ReadWholeFile(file, kLargestFile, text);
    profile = ProfileText(std::move(text));
    return status;
}

std::optional<std::string> FindIn(
    const std::filesystem::path& file, std::string_view section, std::string_view key)
{
    ProfileText profile;
    if (ReadProfile(file, profile) != FileStatus::Ok)
        return std::nullopt;
    const auto value = profile.Find(section, key);
    if (!value)
        return std::nullopt;
    return std::string(*value);
}

std::string_view WithoutTrailingBlanks(std::string_view text)
{
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

} // namespace

std::string PrivateProfile::ReadString(std::string_view section, std::string_view key,
    std::string_view defaultValue, std::size_t bufferSize) const
{
    std::string value =
        FindIn(m_file, section, key).value_or(std::string(WithoutTrailingBlanks(defaultValue)));
    const std::size_t longest = bufferSize == 0 ? 0 : bufferSize - 1;
    if (value.size() > longest)
        value.resize(longest);
    return value;
}

int PrivateProfile::ReadInt(std::string_view section, std::string_view key, int defaultValue) const
{
    const auto value = FindIn(m_file, section, key);
    return !value || value->empty() ? defaultValue : ParseInteger(*value);
}

FileStatus PrivateProfile::WriteString(
    std::string_view section, std::string_view key, std::string_view value) const
{
    ProfileText profile;
    const FileStatus status = ReadProfile(m_file, profile);
    if (status != FileStatus::Ok && status != FileStatus::NotFound)
        return status;
    if (!profile.Set(section, key, value))
        return FileStatus::Failed;
    return WriteFileAtomically(m_file, profile.Text());
}

FileStatus PrivateProfile::Remove(
    std::string_view section, std::optional<std::string_view> key) const
{
    ProfileText profile;
    const FileStatus status = ReadProfile(m_file, profile);
    if (status == FileStatus::NotFound)
        return FileStatus::Ok;
    if (status != FileStatus::Ok || !profile.Remove(section, key))
        return status;
    return WriteFileAtomically(m_file, profile.Text());
}

} // namespace vireo
