#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace vireo {

/// A unit of scan width, in which scanners of all widths are counted: this many inches.
inline constexpr double kInchesPerWidthUnit = 4.24;
inline constexpr double kMillimetresPerInch = 25.4;
/// "ScannerWidth(1/1200)" of one unit of scan width.
inline constexpr double kScannerWidthPerUnit = 5088.0;

/// The unit of positions across the scan width, by its number in the viewers.
enum class PositionUnit { ScanUnit = 0, Inch = 1, Centimetre = 2 };

/// "SU", "Inch" or "CM": as settings and the command line write a unit.
std::string_view UnitName(PositionUnit unit);
/// The unit of a name in letters of either case; nothing for any other text.
std::optional<PositionUnit> UnitFromName(std::string_view name);
/// "SU", "in" or "cm", for axes.
std::string_view UnitSymbol(PositionUnit unit);
/// How many of the unit a unit of scan width is.
double UnitsPerWidthUnit(PositionUnit unit);

/// The settings file that keeps the unit between runs: "Kestr6.ini" in the work folder where one is
/// set; else in the program's folder where there is such a file, else in the user's folder of
/// settings.
std::filesystem::path UnitSettingsFile();
/// The unit kept there; centimetres when there is none.
PositionUnit ReadUnitSetting();
/// Keeps a unit. That it cannot be kept is not told: it holds for this run all the same.
void WriteUnitSetting(PositionUnit unit);

} // namespace vireo
