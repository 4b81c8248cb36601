#include "viewers/noise/NoiseUnit.h"

#include "platform/KnownFolders.h"
#include "platform/Log.h"
#include "platform/PrivateProfile.h"
#include "platform/Text.h"
#include "platform/WorkPaths.h"

#include <cmath>
#include <system_error>

namespace vireo {

namespace {

struct UnitRow {
    NoiseUnit unit;
    std::string_view name;
    std::string_view symbol;
    double perWidthFactor; ///< Scan width in this unit of a width factor of 1.
};

constexpr double kInchesPerWidthUnit = 4.24;
constexpr UnitRow kUnits[] = {
    {NoiseUnit::ScanUnit, "SU", "SU", 1.0},
    {NoiseUnit::Inch, "Inch", "in", kInchesPerWidthUnit},
    {NoiseUnit::Centimetre, "CM", "cm", kInchesPerWidthUnit * 2.54},
};

const UnitRow& RowOf(NoiseUnit unit)
{
    return kUnits[static_cast<std::size_t>(unit)];
}

constexpr const char* kSection = "Miscellaneous";
constexpr const char* kKey = "Unit";

} // namespace

std::string_view NoiseUnitName(NoiseUnit unit)
{
    return RowOf(unit).name;
}

std::optional<NoiseUnit> NoiseUnitFromName(std::string_view name)
{
    for (const UnitRow& row : kUnits)
        if (EqualsIgnoringCase(row.name, name))
            return row.unit;
    return std::nullopt;
}

std::string_view NoiseUnitSymbol(NoiseUnit unit)
{
    return RowOf(unit).symbol;
}

double NoiseRuler::LineWidth() const
{
    return RowOf(unit).perWidthFactor * widthFactor;
}

double NoiseRuler::PositionOf(double pixel) const
{
    return lineLength > 0 ? LineWidth() * pixel / lineLength : 0.0;
}

double NoiseRuler::PixelOf(double position) const
{
    return widthFactor > 0.0 ? position * lineLength / LineWidth() : 0.0;
}

std::string NoiseRuler::MarkLabel(std::int32_t pixel) const
{
    const double position = PositionOf(pixel - 1.0);
    return unit == NoiseUnit::Centimetre ? Format("%ld", std::lround(position))
                                         : Format("%1.1f", position);
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

NoiseUnit ReadUnitSetting()
{
    const PrivateProfile settings(UnitSettingsFile());
    return NoiseUnitFromName(
        settings.ReadString(kSection, kKey, NoiseUnitName(NoiseUnit::Centimetre)))
        .value_or(NoiseUnit::Centimetre);
}

void WriteUnitSetting(NoiseUnit unit)
{
    const std::filesystem::path file = UnitSettingsFile();
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    if (PrivateProfile(file).WriteString(kSection, kKey, NoiseUnitName(unit)) != FileStatus::Ok)
        Log_Msg("The unit of positions cannot be kept");
}

} // namespace vireo
