#include "viewers/tonal/TonalFileText.h"

#include "platform/ProfileText.h"
#include "platform/Text.h"
#include "viewers/tonal/TonalResolutionData.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>
#include <vector>

namespace vireo {

namespace {

constexpr const char* kSection = "Tonal Resolution";

/// Reads the numbers of a value one after the other, blanks between them, as the C library's scanf
/// does: where one cannot be read, neither can any behind it, and all of these are 0.
class NumberScanner {
public:
    explicit NumberScanner(std::string_view text) : m_rest(text) { }

    std::int32_t Integer()
    {
        SkipBlanks();
        const std::size_t sign = m_rest.find_first_of("+-") == 0 ? 1 : 0;
        const std::size_t end =
            std::min(m_rest.find_first_not_of("0123456789", sign), m_rest.size());
        const std::string_view number = m_rest.substr(0, end);
        if (end == sign)
            m_rest = {};
        else
            m_rest.remove_prefix(end);
        return ParseInteger(number);
    }

    /// A number of single precision. An infinity, and what is not a number, count as 0.
    double Float()
    {
        SkipBlanks();
        if (m_rest.starts_with('+') && !m_rest.starts_with("+-"))
            m_rest.remove_prefix(1);
        float value = 0.0F;
        const auto read = std::from_chars(m_rest.data(), m_rest.data() + m_rest.size(), value);
        if (read.ec == std::errc::invalid_argument)
            m_rest = {};
        else
            m_rest.remove_prefix(static_cast<std::size_t>(read.ptr - m_rest.data()));
        return std::isfinite(value) ? static_cast<double>(value) : 0.0;
    }

private:
    void SkipBlanks()
    {
        m_rest.remove_prefix(std::min(m_rest.find_first_not_of(" \t"), m_rest.size()));
    }

    std::string_view m_rest;
};

/// The values of the section by key.
class TonalValues {
public:
    explicit TonalValues(std::vector<ProfileText::Entry> entries)
        : m_entries(std::move(entries)) { }

    std::string_view Value(std::string_view key, std::string_view missing) const
    {
        constexpr std::size_t kLongestValue = 1000;
        const auto entry = std::find_if(m_entries.begin(), m_entries.end(),
            [key](const ProfileText::Entry& row) { return EqualsIgnoringCase(row.key, key); });
        return entry == m_entries.end() ? missing : entry->value.substr(0, kLongestValue);
    }
    std::string Text(std::string_view key, std::string_view missing) const
    {
        return std::string(Value(key, missing));
    }
    NumberScanner Numbers(std::string_view key) const { return NumberScanner(Value(key, "0")); }

private:
    std::vector<ProfileText::Entry> m_entries;
};

TonalPatch ReadPatch(NumberScanner numbers)
{
    TonalPatch patch;
    patch.lightness = numbers.Float();
    patch.count = numbers.Integer();
    for (std::int32_t& sum : patch.sum)
        sum = numbers.Integer();
    for (std::int32_t& sum : patch.sumOfSquares)
        sum = numbers.Integer();
    return patch;
}

} // namespace

bool ParseTonalText(const std::string& text, TonalResolutionData& data)
{
    const ProfileText profile(text);
    auto entries = profile.Entries(kSection);
    if (!entries)
        return false;
    const TonalValues values(std::move(*entries));
    data.m_iVersion = values.Numbers("Version").Integer();
    data.m_ScannerName = values.Text("ScannerName", "No Name");
    data.m_ChassisNo = values.Text("ChassisNo", "No ChassisNo");
    data.m_SerialNo = values.Text("SerialNo", "No SerialNo");
    data.m_Date = values.Text("Date", "No Date");
    data.m_Time = values.Text("Time", "No Time");
    data.m_FirmwareBuild = values.Text("Firmware Build", "No Firmware Build");
    data.m_iGammaSlopeLimit = values.Numbers("GammaSlopeLimit").Integer();
    data.m_IT8RefFile = values.Text("IT8RefFile", "No IT8RefFile");
    NumberScanner lightBits = values.Numbers("BitDebthLightColor");
    for (double& bits : data.m_dBitDepthLight)
        bits = lightBits.Float();
    for (std::size_t i = 0; i < data.m_patches.size(); ++i)
        data.m_patches[i] = ReadPatch(values.Numbers(TonalPatchName(i)));
    return true;
}

std::string TonalPatchName(std::size_t index)
{
    return Format("GS%02zu", index);
}

namespace {

std::string TextLine(const char* key, const std::string& value)
{
    return std::string(key).append("=\t").append(value).append("\n");
}

std::string IntegerLine(const char* key, std::int32_t value)
{
    return Format("%s=\t%d\n", key, value);
}

std::string FigureLine(const char* key, double value)
{
    return Format("%s=\t%6.2f\n", key, value);
}

std::string TripleLine(const char* key, const TonalTriple<double>& values)
{
    return Format("%s=\t%6.2f\t%6.2f\t%6.2f\n", key, values[0], values[1], values[2]);
}

std::string FitLines(const TonalTriple<LineFit>& fit)
{
    return Format("LinearityBestFit_RGB_CorrelationCoefficients=\t%8.5f\t%8.5f\t%8.5f\n",
               fit[0].correlation, fit[1].correlation, fit[2].correlation)
        + TripleLine("LinearityBestFit_RGB_Slope", {fit[0].slope, fit[1].slope, fit[2].slope})
        + TripleLine("LinearityBestFit_RGB_Offset", {fit[0].offset, fit[1].offset, fit[2].offset});
}

std::string PatchLine(const std::string& name, const TonalPatch& patch)
{
    const auto& [sumR, sumG, sumB] = patch.sum;
    const auto& [sumRR, sumGG, sumBB] = patch.sumOfSquares;
    return Format("%s=%6.2f\t%d\t%d\t%d\t%d\t%d\t%d\t%d\t%6.2f\t%6.2f\t%6.2f\t%6.2f\n",
        name.c_str(), patch.lightness, patch.count, sumR, sumG, sumB, sumRR, sumGG, sumBB,
        patch.density, patch.scan[TonalRed], patch.scan[TonalGreen], patch.scan[TonalBlue]);
}

} // namespace

// "Debth", "Ligkt" and the blanks before '=' are part of the format.
std::string FormatTonalText(const TonalResolutionData& data)
{
    const auto digits = [](std::int32_t index) { return Format("GS%d%d", index / 10, index % 10); };
    std::string text = "[Tonal Resolution]\n";
    text += IntegerLine("Version", data.m_iVersion);
    text += TextLine("ScannerName", data.m_ScannerName);
    text += TextLine("ChassisNo", data.m_ChassisNo);
    text += TextLine("SerialNo", data.m_SerialNo);
    text += TextLine("Date", data.m_Date);
    text += TextLine("Time", data.m_Time);
    text += TextLine("Firmware Build", data.m_FirmwareBuild);
    text += IntegerLine("GammaSlopeLimit", data.m_iGammaSlopeLimit);
    text += TextLine("IT8RefFile", data.m_IT8RefFile);
    text += FigureLine("IT8DynamicRange", data.m_dIT8DynamicRange);
    text += FigureLine("ScannerDynamicRange", data.m_dScannerDynamicRange);
    text += FitLines(data.m_fit);
    text += TripleLine("BitDebthLightColor", data.m_dBitDepthLight);
    text += TripleLine("BitDebthDarkColor", data.m_dBitDepthDark);
    text += TextLine("BitDebthColorIndex",
        digits(data.m_iBitDepthLightIndex) + '\t' + digits(data.m_iBitDepthDarkIndex));
    text += Format("BitDebthColorTarget=\t%6.2f\t%6.2f\n", data.m_dBitDepthLightTarget,
        data.m_dBitDepthDarkTarget);
    text += FigureLine("MaxDarkDeviation ", data.m_dMaxDarkDeviation);
    text += FigureLine("MaxLigktDeviation ", data.m_dMaxLightDeviation);
    text += "Patch=L\tn\tSumR\tSumG\tSumB\tSumRR\tSumGG\tSumBB\tDensity\tR\tG\tB\n";
    for (std::size_t i = 0; i < data.m_patches.size(); ++i)
        text += PatchLine(TonalPatchName(i), data.m_patches[i]);
    text += IntegerLine("IndexMaxDynamicRange", data.m_iIndexMaxDynamicRange);
    text += IntegerLine("IndexMinDynamicRange", data.m_iIndexMinDynamicRange);
    return text;
}

} // namespace vireo
