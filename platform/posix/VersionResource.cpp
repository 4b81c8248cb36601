#include "platform/VersionResource.h"

#include "VersionRecord.h"
#include "platform/KnownFolders.h"
#include "platform/ProgramInfo.h"

#include <array>
#include <string_view>
#include <system_error>

namespace vireo {

namespace {

struct RecordText {
    std::string_view field;
    std::string_view text;
};

/// The texts of the running program, in English (US) as the Windows resource has them.
constexpr std::array<RecordText, 8> kRecord = {{
    {"CompanyName", VIREO_COMPANY_NAME},
    {"FileDescription", VIREO_FILE_DESCRIPTION},
    {"FileVersion", VIREO_FILE_VERSION},
    {"InternalName", VIREO_INTERNAL_NAME},
    {"LegalCopyright", VIREO_LEGAL_COPYRIGHT},
    {"OriginalFilename", VIREO_ORIGINAL_FILENAME},
    {"ProductName", VIREO_PRODUCT_NAME},
    {"ProductVersion", VIREO_PRODUCT_VERSION},
}};

constexpr std::array<std::uint32_t, 4> kVersion = {VIREO_VERSION_NUMBERS};

} // namespace

bool VersionResource::Load(const std::filesystem::path& module)
{
    std::error_code error;
    return std::filesystem::equivalent(module, ProgramPath(), error) && !error;
}

std::vector<std::uint8_t> VersionResource::FixedFileInfo() const
{
    constexpr std::uint32_t kSignature = 0xFEEF04BD;
    constexpr std::uint32_t kStructureVersion = 0x00010000;
    constexpr std::uint32_t kAllFlags = 0x3F;
    constexpr std::uint32_t kWindowsNt = 0x00040004;
    constexpr std::uint32_t kApplication = 1;
    constexpr std::uint32_t kHigh = kVersion[0] << 16 | kVersion[1];
    constexpr std::uint32_t kLow = kVersion[2] << 16 | kVersion[3];
    // File version, product version, flag mask and flags, system, type and subtype, date.
    constexpr std::array<std::uint32_t, 13> kWords = {kSignature, kStructureVersion, kHigh, kLow,
        kHigh, kLow, kAllFlags, 0, kWindowsNt, kApplication, 0, 0, 0};
    std::vector<std::uint8_t> bytes;
    for (const std::uint32_t word : kWords) {
        for (unsigned shift = 0; shift < 32; shift += 8)
            bytes.push_back(static_cast<std::uint8_t>(word >> shift & 0xFF));
    }
    return bytes;
}

std::string VersionResource::Text(const std::string& queryPath) const
{
    for (const RecordText& record : kRecord) {
        if (queryPath == VersionQueryPath(kLanguageEnglishUs, kCodePageUnicode, record.field))
            return std::string(record.text);
    }
    return {};
}

} // namespace vireo
