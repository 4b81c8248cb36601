#include "viewers/tonal/TonalReport.h"

#include "platform/Path.h"
#include "platform/Text.h"
#include "viewers/tonal/TonalFileText.h"
#include "viewers/tonal/TonalResolutionData.h"

#include <sstream>

namespace vireo {

namespace {

std::string TripleLine(const char* caption, const TonalTriple<double>& values)
{
    return Format("   %-26s %6.2f   %6.2f   %6.2f\n", caption, values[0], values[1], values[2]);
}

std::string FigureLine(const char* caption, double value)
{
    return Format("   %-26s %6.2f\n", caption, value);
}

} // namespace

std::string TonalReport(const TonalResolutionData& data)
{
    if (!data.IsLoaded())
        return "No data to display.";
    const auto& [red, green, blue] = data.m_fit;
    std::string text = "Dynamic range\n";
    text += FigureLine("IT8 dynamic range:", data.m_dIT8DynamicRange);
    text += FigureLine("Scanner dynamic range:", data.m_dScannerDynamicRange);
    text += "\n";
    text += "Linearity. Best-fit for r, g and b.\n";
    text += Format("   Correlation coefficients:   %8.5f %8.5f %8.5f\n", red.correlation,
        green.correlation, blue.correlation);
    text += TripleLine("Slope:", {red.slope, green.slope, blue.slope});
    text += TripleLine("Offset:", {red.offset, green.offset, blue.offset});
    text += "\n";
    text += "Signal Noise\n";
    text += TripleLine("Light color:", data.m_dBitDepthLight);
    text += TripleLine("Dark color:", data.m_dBitDepthDark);
    text += "\n";
    text += "Largest deviation\n";
    text += FigureLine("Light area:", data.m_dMaxLightDeviation);
    text += FigureLine("Dark area:", data.m_dMaxDarkDeviation);
    return text;
}

std::string TonalPatchTable(const TonalResolutionData& data)
{
    if (!data.IsLoaded())
        return {};
    std::string text = "            L Density     n  R mean G mean B mean       R      G      B"
                       "  R diff G diff B diff\n";
    const auto triple = [&text](double red, double green, double blue) {
        text += Format(" %7.2f%7.2f%7.2f", red, green, blue);
    };
    for (std::size_t i = 0; i < data.m_patches.size(); ++i) {
        const TonalPatch& patch = data.m_patches[i];
        text += Format("%s %8.2f%8.2f%6d", TonalPatchName(i).c_str(), patch.lightness,
            patch.density, patch.count);
        triple(patch.Mean(TonalRed), patch.Mean(TonalGreen), patch.Mean(TonalBlue));
        triple(patch.scan[TonalRed], patch.scan[TonalGreen], patch.scan[TonalBlue]);
        triple(data.DeviationOf(patch, TonalRed), data.DeviationOf(patch, TonalGreen),
            data.DeviationOf(patch, TonalBlue));
        text += '\n';
    }
    return text;
}

std::vector<std::string> TonalHeaderLines(const TonalResolutionData& data)
{
    return {
        "Tonal Resolution",
        "Scanner Name:    " + data.m_ScannerName,
        "Serial Number:   " + data.m_SerialNo,
        "Chassis Number:  " + data.m_ChassisNo,
        "Firmware Build:  " + data.m_FirmwareBuild,
        "Date:            " + data.m_Date + "  " + data.m_Time,
        "IT8 Reference:   " + data.m_IT8RefFile,
        "File:            " + Windows1252FromUtf8(Utf8FromPath(data.m_FileName.filename())),
    };
}

std::vector<std::string> TonalPlotHeaderLines(const TonalResolutionData& data)
{
    std::vector<std::string> lines = TonalHeaderLines(data);
    lines.emplace_back(" ");
    std::istringstream report(TonalReport(data));
    for (std::string line; std::getline(report, line);)
        lines.push_back(line.empty() ? " " : line);
    lines.emplace_back(" ");
    return lines;
}

} // namespace vireo
