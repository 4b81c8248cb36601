#include "viewers/controls/PositionUnit.h"

#include "platform/KnownFolders.h"
#include "platform/Log.h"
#include "platform/PrivateProfile.h"
#include "platform/Text.h"
#include "platform/WorkPaths.h"

#include <system_error>

namespace vireo {

namespace {

struct UnitRow {
    PositionUnit unit;
    std::string_view name;
    std::string_view symbol;
    double perWidthFactor; ///< Scan width in this unit of a width factor of 1.
};

constexpr UnitRow kUnits[] = {
    {PositionUnit::ScanUnit, "SU", "SU", 1.0},
    {PositionUnit::Inch, "Inch", "in", kInchesPerWidthUnit},
    {PositionUnit::Centimetre, "CM", "cm", kInchesPerWidthUnit * 2.54},
};

const UnitRow& RowOf(PositionUnit unit)
{
    return kUnits[static_cast<std::size_t>(unit)];
}

constexpr const char* kSection = "Miscellaneous";
constexpr const char* kKey = "Unit";

} // namespace

std::string_view UnitName(PositionUnit unit)
{
    return RowOf(unit).name;
}

std::optional<PositionUnit> UnitFromName(std::string_view name)
{
    for (const UnitRow& row : kUnits)
        if (EqualsIgnoringCase(row.name, name))
            return row.unit;
    return std::nullopt;
}

std::string_view UnitSymbol(PositionUnit unit)
{
    return RowOf(unit).symbol;
}

double UnitsPerWidthUnit(PositionUnit unit)
{
    return RowOf(unit).perWidthFactor;
}

std::filesystem::path UnitSettingsFile()
{
    constexpr const char* kFile = "Kestr6.ini";
    const SettingsFolders folders = SystemSettingsFolders();
    const std::filesystem::path workFolder = FolderFromText(ReadWorkPath(folders));
    std::error_code error;
    if (!workFolder.empty() && std::filesystem::is_directory(workFolder, error))
        return workFolder / kFile;
    const std::filesystem::path besideProgram = folders.program / kFile;
    if (std::filesystem::exists(besideProgram, error))
        return besideProgram;
    return ConfigFolder() / kFile;
}

PositionUnit ReadUnitSetting()
{
    const PrivateProfile settings(UnitSettingsFile());
    return UnitFromName(settings.ReadString(kSection, kKey, UnitName(PositionUnit::Centimetre)))
        .value_or(PositionUnit::Centimetre);
}

void WriteUnitSetting(PositionUnit unit)
{
    const std::filesystem::path file = UnitSettingsFile();
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    if (PrivateProfile(file).WriteString(kSection, kKey, UnitName(unit)) != FileStatus::Ok)
        Log_Msg("The unit of positions cannot be kept");
}

} // namespace vireo
