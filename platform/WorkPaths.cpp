#include "platform/WorkPaths.h"

#include "platform/AtomicFile.h"
#include "platform/KnownFolders.h"
#include "platform/Path.h"
#include "platform/PrivateProfile.h"
#include "platform/Text.h"

#include <algorithm>

namespace vireo {

namespace {

constexpr std::string_view kWorkPathFile = "Kestrel6_Path.txt";
constexpr std::string_view kFixedPathFile = "Kestrel6_FixPath.txt";
constexpr std::string_view kTestFolder = "Fct_Test";
constexpr std::size_t kLargestFile = 1024 * 1024;
constexpr std::size_t kLongestPath = 260;

bool HasOwnPaths(int generation)
{
    return generation >= 1 && generation <= 89;
}

std::string GenerationKey(int generation)
{
    return Format("Fixed Path %dGen=", generation);
}

} // namespace

SettingsFolders SystemSettingsFolders()
{
    SettingsFolders folders{ProgramFolder(), {}};
#ifdef _WIN32
    for (char drive = 'C'; drive <= 'I'; ++drive)
        folders.tests.push_back(std::string(1, drive) + ":\\" + std::string(kTestFolder));
#else
    for (const std::filesystem::path& parent :
        {ConfigFolder(), std::filesystem::path("/usr/local/share"), std::filesystem::path("/opt")})
        folders.tests.push_back(parent / kTestFolder);
#endif
    return folders;
}

std::optional<std::filesystem::path> LocateSettingsFile(
    const SettingsFolders& folders, std::string_view name)
{
    const auto holdsFile = [name](const std::filesystem::path& folder) {
        PositionalFile file;
        return !folder.empty() && file.Open(folder / name) == FileStatus::Ok;
    };
    if (holdsFile(folders.program))
        return folders.program;
    const auto found = std::ranges::find_if(folders.tests, holdsFile);
    return found == folders.tests.end() ? std::nullopt : std::optional(*found);
}

std::string ReadWorkPath(const SettingsFolders& folders)
{
    std::string content;
    if (ReadWholeFile(folders.program / kWorkPathFile, kLargestFile, content) != FileStatus::Ok)
        content.clear();
    return content;
}

void RecordWorkPath(const SettingsFolders& folders, const std::filesystem::path& folder)
{
    const auto settings = LocateSettingsFile(folders, kFixedPathFile);
    if (!settings)
        return;
    // The empty name behind it gives the path its separator at the end.
    auto path = FullPath(folder) / "";
    const std::string utf8 = Utf8FromPath(path.make_preferred());
    const std::string text = Windows1252FromUtf8(utf8);
    if (text.size() < kLongestPath && Utf8FromWindows1252(text) == utf8)
        (void)WriteFileAtomically(*settings / kWorkPathFile, text);
}

bool IsTestStation(const SettingsFolders& folders)
{
    PositionalFile file;
    return !folders.program.empty() && file.Open(folders.program / kStationFile) == FileStatus::Ok;
}

std::filesystem::path FolderFromText(std::string_view text)
{
    std::string folder(text.substr(0, text.find_first_of("\r\n")));
#ifndef _WIN32
    std::ranges::replace(folder, '\\', '/');
#endif
    return PathFromUtf8(Utf8FromWindows1252(folder));
}

namespace {

constexpr std::string_view kKeptSection = "Folders";
constexpr std::size_t kLongestKeptFolder = 32768;

bool IsFolder(const std::filesystem::path& folder)
{
    std::error_code error;
    return !folder.empty() && std::filesystem::is_directory(folder, error);
}

} // namespace

std::filesystem::path FolderForDialog(
    const SettingsFolders& folders, const std::filesystem::path& kept, const DialogPlace& place)
{
    std::vector<std::filesystem::path> candidates;
    if (!place.functionKey.empty())
        candidates.push_back(PathFromUtf8(PrivateProfile(kept).ReadString(
            kKeptSection, place.functionKey, "", kLongestKeptFolder)));
    const auto addWithOwnFolder = [&](const std::filesystem::path& folder) {
        if (folder.empty())
            return;
        if (!place.folderName.empty())
            candidates.push_back(folder / place.folderName);
        candidates.push_back(folder);
    };
    // No generation is asked for, so the file is only read.
    if (const FixedPathSettings settings = LoadFixedPathSettings(folders, 0); settings.useFixedPath)
        addWithOwnFolder(FolderFromText(settings.fixedPath));
    addWithOwnFolder(FolderFromText(ReadWorkPath(folders)));
    const auto found = std::ranges::find_if(candidates, IsFolder);
    return found == candidates.end() ? std::filesystem::path() : *found;
}

void KeepFolderOfDialog(const std::filesystem::path& kept, const DialogPlace& place,
    const std::filesystem::path& chosenFile)
{
    if (place.functionKey.empty())
        return;
    std::error_code error;
    std::filesystem::create_directories(kept.parent_path(), error);
    (void)PrivateProfile(kept).WriteString(
        kKeptSection, place.functionKey, Utf8FromPath(chosenFile.parent_path()));
}

namespace {

/// The text of a settings file from which each key is taken once.
class KeyTaker {
public:
    explicit KeyTaker(std::string_view text) : m_text(text) { }

    /// The value behind the first occurrence of a key anywhere, up to the end of its line. The key
    /// is spoilt, so that shorter keys are not found in it: "Fixed Path=" ends "Use Fixed Path=".
    std::optional<std::string> Take(std::string_view key)
    {
        const std::size_t at = m_text.find(key);
        if (at == std::string::npos)
            return std::nullopt;
        const std::size_t begin = at + key.size();
        const std::size_t end = std::min(m_text.find_first_of("\r\n", begin), m_text.size());
        m_text[begin - 1] = ' ';
        return m_text.substr(begin, end - begin);
    }

private:
    std::string m_text;
};

bool IsYes(std::string_view value)
{
    const auto isOneOf = [value](std::size_t index, char upper, char lower) {
        return index < value.size() && (value[index] == upper || value[index] == lower);
    };
    return isOneOf(0, 'T', 't') || isOneOf(1, 'N', 'n');
}

std::string AsFolder(std::string path)
{
    path.resize(std::min(path.size(), kLongestPath - 1));
    if (!path.empty() && path.back() != '\\')
        path += '\\';
    return path;
}

} // namespace

FixedPathSettings ParseFixedPathSettings(std::string_view text, int generation)
{
    FixedPathSettings settings;
    KeyTaker keys(text);
    settings.useFixedPath = IsYes(keys.Take("Use Fixed Path=").value_or(""));
    if (auto path = keys.Take("Fixed Path="))
        settings.generalPath = AsFolder(*std::move(path));
    if (auto chassis = keys.Take("Last Chassis No=")) {
        std::erase_if(*chassis, [](char c) { return static_cast<unsigned char>(c) < 32; });
        settings.lastChassisNo = *std::move(chassis);
    }
    settings.fixedPath = settings.generalPath;
    if (!HasOwnPaths(generation))
        return settings;
    for (int own = FixedPathSettings::kFirstGeneration; own <= FixedPathSettings::kLastGeneration;
         ++own) {
        std::string path = AsFolder(keys.Take(GenerationKey(own)).value_or(""));
        settings.generationPaths[static_cast<std::size_t>(own)] =
            path.empty() ? settings.generalPath : std::move(path);
    }
    settings.fixedPath = settings.generationPaths[static_cast<std::size_t>(generation)];
    return settings;
}

std::string FormatFixedPathSettings(const FixedPathSettings& settings)
{
    std::string text = std::string("Use Fixed Path=") + (settings.useFixedPath ? "ON" : "OFF")
        + "\nFixed Path=" + settings.generalPath + "\n";
    for (int own = FixedPathSettings::kFirstGeneration; own <= FixedPathSettings::kLastGeneration;
         ++own)
        text += GenerationKey(own) + settings.generationPaths[static_cast<std::size_t>(own)] + "\n";
    return text + "Last Chassis No=" + settings.lastChassisNo + "\n";
}

FixedPathSettings LoadFixedPathSettings(const SettingsFolders& folders, int generation)
{
    const auto folder = LocateSettingsFile(folders, kFixedPathFile);
    std::string text;
    if (!folder || ReadWholeFile(*folder / kFixedPathFile, kLargestFile, text) != FileStatus::Ok)
        return {};
    FixedPathSettings settings = ParseFixedPathSettings(text, generation);
    // The values hold whether or not the file can be written.
    if (HasOwnPaths(generation))
        (void)WriteFileAtomically(*folder / kFixedPathFile, FormatFixedPathSettings(settings));
    return settings;
}

} // namespace vireo
