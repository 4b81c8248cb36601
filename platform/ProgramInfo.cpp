#include "platform/ProgramInfo.h"

#include "platform/KnownFolders.h"
#include "platform/VersionResource.h"

#include <algorithm>

namespace vireo {

namespace {

constexpr std::size_t kLongestField = 256;

struct TextField {
    std::string_view name;
    std::string ProgramInfo::*text;
};

constexpr std::array<TextField, 12> kTextFields = {{
    {"CompanyName", &ProgramInfo::companyName},
    {"FileDescription", &ProgramInfo::fileDescription},
    {"FileVersion", &ProgramInfo::fileVersion},
    {"InternalName", &ProgramInfo::internalName},
    {"LegalCopyright", &ProgramInfo::legalCopyright},
    {"OriginalFilename", &ProgramInfo::originalFilename},
    {"ProductName", &ProgramInfo::productName},
    {"ProductVersion", &ProgramInfo::productVersion},
    {"Comments", &ProgramInfo::comments},
    {"LegalTrademarks", &ProgramInfo::legalTrademarks},
    {"PrivateBuild", &ProgramInfo::privateBuild},
    {"SpecialBuild", &ProgramInfo::specialBuild},
}};

std::string_view LanguagePart(int language)
{
    if (language == kLanguageEnglishUs)
        return "0409";
    return language == kLanguageNeutral ? "0000" : "";
}

std::string_view CodePagePart(int codePage)
{
    if (codePage == kCodePageUnicode)
        return "04B0";
    return codePage == kCodePageWindows1252 ? "04E4" : "";
}

} // namespace

std::string VersionQueryPath(int language, int codePage, std::string_view fieldName)
{
    const std::string_view languagePart = LanguagePart(language);
    const std::string_view codePagePart = CodePagePart(codePage);
    if (languagePart.empty() || codePagePart.empty())
        return {};
    std::string path = "\\StringFileInfo\\";
    path.append(languagePart).append(codePagePart).append("\\").append(fieldName);
    return path;
}

bool ReadProgramInfo(
    const std::filesystem::path& module, int language, int codePage, ProgramInfo& info)
{
    info = {};
    VersionResource resource;
    if (!resource.Load(module))
        return false;
    const std::vector<std::uint8_t> fixed = resource.FixedFileInfo();
    std::copy_n(fixed.begin(), std::min(fixed.size(), info.fixedFileInfo.size()),
        info.fixedFileInfo.begin());
    for (const TextField& field : kTextFields) {
        const std::string path = VersionQueryPath(language, codePage, field.name);
        if (!path.empty())
            info.*field.text = resource.Text(path).substr(0, kLongestField);
    }
    return true;
}

ProgramInfo OwnProgramInfo()
{
    ProgramInfo info;
    ReadProgramInfo(ProgramPath(), kLanguageEnglishUs, kCodePageUnicode, info);
    return info;
}

} // namespace vireo
