#pragma once

#include "platform/PositionalFile.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

// The folders and settings files that the viewer shares with the test program. Text in these files
// is 8-bit Windows-1252, and folders in them end with '\' on every system.

/// Where settings files are looked for: the program's own folder, then the test program's folders.
struct SettingsFolders {
    std::filesystem::path program;
    std::vector<std::filesystem::path> tests;
};

/// The folders of this system. Windows: the executable's, then "\Fct_Test" on the drives C to I.
/// Elsewhere "Fct_Test" in the user's folder of settings, in /usr/local/share and in /opt stands in
/// for the drives.
SettingsFolders SystemSettingsFolders();

/// The folder of the first settings file of this name that can be opened; nothing when there is
/// none.
std::optional<std::filesystem::path> LocateSettingsFile(
    const SettingsFolders& folders, std::string_view name);

/// The content of "Kestrel6_Path.txt" in the program's folder as it stands, or empty.
std::string ReadWorkPath(const SettingsFolders& folders);

/// Makes a folder the work path: writes it into "Kestrel6_Path.txt" beside "Kestrel6_FixPath.txt",
/// ended by a separator. Nothing is written where there is no such file, and for a folder that does
/// not fit into the 260 characters of Windows-1252 that the test program has for it. Whether it was
/// written is nothing that anybody has to be told.
void RecordWorkPath(const SettingsFolders& folders, const std::filesystem::path& folder);

/// The settings file of a test station.
inline constexpr std::string_view kStationFile = "Fct_Tst6.ini";

/// Whether this machine is a test station: the program's own folder holds the station's file.
bool IsTestStation(const SettingsFolders& folders);

/// The folder that a text of these files names, without the line end that an editor may have left
/// behind it. Where folders are told apart by '/', every '\\' becomes one.
std::filesystem::path FolderFromText(std::string_view text);

/// Where the file dialogs of a kind of test begin.
struct DialogPlace {
    /// The test's function key, such as "F24", under which the folder chosen last is kept; empty
    /// for dialogs that keep none.
    std::string_view functionKey;
    /// The test's own folder in the folder of results, such as "StarTest"; may be empty.
    std::string_view folderName;
};

/// The folder in which a file dialog begins: the first that exists of the folder chosen last for
/// this function key, the fixed path if it is used, and the work path, the latter two with the
/// test's own folder in them if there is one. Empty when there is none. The folders chosen last are
/// kept in the settings file `kept`.
std::filesystem::path FolderForDialog(
    const SettingsFolders& folders, const std::filesystem::path& kept, const DialogPlace& place);

/// Keeps the folder of a file chosen for a function key; without a key nothing is kept, and a
/// settings file that cannot be written is no reason to bother anybody.
void KeepFolderOfDialog(const std::filesystem::path& kept, const DialogPlace& place,
    const std::filesystem::path& chosenFile);

/// What "Kestrel6_FixPath.txt" says of where results are saved.
struct FixedPathSettings {
    static constexpr int kFirstGeneration = 3; ///< Generations with a folder of their own.
    static constexpr int kLastGeneration = 20;

    bool useFixedPath = false;
    std::string generalPath = "c:\\temp\\"; ///< At most 260 characters.
    std::string lastChassisNo = "CHxxxxxx";
    std::array<std::string, 100> generationPaths; ///< By generation number.
    /// The folder for the generation asked for: its own entry for 1 to 89 (empty for those without
    /// one, as it has always been), else the general path.
    std::string fixedPath = generalPath;
};

/// Reads the settings from the text of the file.
FixedPathSettings ParseFixedPathSettings(std::string_view text, int generation);

/// The settings as the file holds them: 21 lines, in the order of the test program.
std::string FormatFixedPathSettings(const FixedPathSettings& settings);

/// Finds and reads "Kestrel6_FixPath.txt" and, for a generation from 1 to 89, rewrites it in its
/// canonical form, completely or not at all; a file that cannot be rewritten stays as it is.
/// Without a file, or with one above 1 MiB, the defaults hold and nothing is written.
FixedPathSettings LoadFixedPathSettings(const SettingsFolders& folders, int generation);

} // namespace vireo
