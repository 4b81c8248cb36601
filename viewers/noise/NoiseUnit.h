#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vireo {

/// The unit of positions across the scan width, by its number in the viewer.
enum class NoiseUnit { ScanUnit = 0, Inch = 1, Centimetre = 2 };

/// "SU", "Inch" or "CM": as settings and the command line write a unit.
std::string_view NoiseUnitName(NoiseUnit unit);
/// The unit of a name in letters of either case; nothing for any other text.
std::optional<NoiseUnit> NoiseUnitFromName(std::string_view name);
/// "SU", "in" or "cm", for axes.
std::string_view NoiseUnitSymbol(NoiseUnit unit);

/// The positions of a line of `lineLength` pixels over a scan width of `widthFactor` times 4.24
/// inches.
struct NoiseRuler {
    std::int32_t lineLength = 0;
    double widthFactor = 0.0;
    NoiseUnit unit = NoiseUnit::Centimetre;

    /// The distance of a pixel's start from the line's start; 0 for an empty line.
    double PositionOf(double pixel) const;
    /// The inverse of PositionOf.
    double PixelOf(double position) const;
    /// The text at the mark of a pixel. It gives the position of the pixel before, as the tools
    /// have always written it; whole numbers in centimetres, else one decimal.
    std::string MarkLabel(std::int32_t pixel) const;

private:
    double LineWidth() const;
};

/// The settings file that keeps the unit between runs: "Kestr6.ini" in the work folder where one is
/// set; else in the program's folder where there is such a file, else in the user's folder of
/// settings.
std::filesystem::path UnitSettingsFile();
/// The unit kept there; centimetres when there is none.
NoiseUnit ReadUnitSetting();
/// Keeps a unit. That it cannot be kept is not told: it holds for this run all the same.
void WriteUnitSetting(NoiseUnit unit);

} // namespace vireo
