#include "viewers/tonal/TonalReport.h"

#include "platform/Path.h"
#include "platform/Text.h"
#include "viewers/tonal/TonalFileText.h"
#include "viewers/tonal/TonalResolutionData.h"

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
    std::string text = "Patch      L  Density       n  R mean  G mean  B mean"
                       "       R       G       B   R diff  G diff  B diff\n";
    for (std::size_t i = 0; i < data.m_patches.size(); ++i) {
        const TonalPatch& patch = data.m_patches[i];
        text += Format("%s   %6.2f   %6.2f %7d", TonalPatchName(i).c_str(), patch.lightness,
            patch.density, patch.count);
        for (std::size_t channel = 0; channel < kTonalChannels; ++channel)
            text += Format(" %7.2f", patch.Mean(channel));
        for (const double scan : patch.scan)
            text += Format(" %7.2f", scan);
        text += ' ';
        for (std::size_t channel = 0; channel < kTonalChannels; ++channel)
            text += Format(" %7.2f", data.DeviationOf(patch, channel));
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

} // namespace vireo
