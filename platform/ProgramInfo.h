#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace vireo {

/// The program information record: what the version resource of an executable says of it. On
/// systems without version resources the running program's record is compiled in.
struct ProgramInfo {
    /// The fixed file information block, 52 bytes as it stands in the resource; zeros when missing.
    std::array<std::uint8_t, 52> fixedFileInfo{};

    // The twelve text fields, each at most 256 characters of Windows-1252; empty when missing.
    std::string companyName;
    std::string fileDescription;
    std::string fileVersion;
    std::string internalName;
    std::string legalCopyright;
    std::string originalFilename;
    std::string productName;
    std::string productVersion;
    std::string comments;
    std::string legalTrademarks;
    std::string privateBuild;
    std::string specialBuild;
};

inline constexpr int kLanguageNeutral = 0;
inline constexpr int kLanguageEnglishUs = 1033;
inline constexpr int kCodePageUnicode = 1200;
inline constexpr int kCodePageWindows1252 = 1252;

/// The query path of one text field, such as "\StringFileInfo\040904B0\FileVersion"; empty for a
/// language other than 0 and 1033 or a code page other than 1200 and 1252.
std::string VersionQueryPath(int language, int codePage, std::string_view fieldName);

/// Fills the record of an executable; false, and an empty record, when it has none. A field of a
/// language or code page that VersionQueryPath does not know stays empty.
bool ReadProgramInfo(
    const std::filesystem::path& module, int language, int codePage, ProgramInfo& info);

/// The running program's own record, in English (US).
ProgramInfo OwnProgramInfo();

} // namespace vireo
