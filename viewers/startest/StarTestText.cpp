#include "viewers/startest/StarTestText.h"

#include "platform/Text.h"
#include "viewers/startest/StarTestData.h"

#include <algorithm>
#include <cmath>

namespace vireo {

std::string SweepListText(const StarTestSweep& sweep, bool isSelected)
{
    return Format(
        "%d %c%c", sweep.m_iResolution, sweep.m_bColour ? 'c' : 'm', isSelected ? '<' : ' ');
}

std::string ApplicationFactorText(const StarTestData& data)
{
    constexpr std::size_t kToldWithDeviation = 3;
    const StarTestSweep* const sweep = data.SelectedSweep();
    if (!sweep || !(sweep->m_dApplicationFactor > 0.0))
        return {};
    std::string text = Format(
        "App.Fct. %6.2f (%d)", sweep->m_dApplicationFactor, sweep->m_iApplicationFactorCount);
    if (data.m_bStandardDeviation && data.m_iSelectedIndex == kToldWithDeviation)
        text += Format(" (Stddev:%5.2f)", sweep->FactorDeviation());
    return text;
}

namespace {

/// Which record it is, counted from 1 as people do.
std::string SweepName(const StarTestData& data, const StarTestSweep& sweep)
{
    const auto number = static_cast<int>(data.m_iSelectedIndex) + 1;
    const auto measured = static_cast<int>(data.MeasuredCount());
    if (sweep.m_bAvgResult && number > measured)
        return Format("Average %d of %d rounds", number - measured, data.m_iRepeat);
    return Format("Sweep %d of %d", number, measured);
}

} // namespace

std::string SweepTitle(const StarTestData& data)
{
    const StarTestSweep* const sweep = data.SelectedSweep();
    if (!sweep)
        return {};
    return SweepName(data, *sweep)
        + Format("   %d dpi   scan speed %d   %d lines", sweep->m_iResolution, sweep->m_iScanSpeed,
            sweep->LineCount());
}

std::string SweepDescription(const StarTestData& data)
{
    const StarTestSweep* const sweep = data.SelectedSweep();
    if (!sweep)
        return "No star test";
    std::string text = SweepName(data, *sweep) + '\n';
    text += Format("%d dpi, %s\nScan speed %d\n%d lines", sweep->m_iResolution,
        sweep->m_bColour ? "color" : "mono", sweep->m_iScanSpeed, sweep->LineCount());
    const double length = CentimetresAt(sweep->LineCount(), sweep->m_iResolution);
    return length > 0.0 ? text + Format(", %.1f cm", length) : text;
}

double CentimetresAt(double line, std::int32_t resolution)
{
    constexpr double kCentimetresPerInch = 2.54;
    return resolution == 0 ? 0.0 : line * kCentimetresPerInch / resolution;
}

std::array<std::string, 5> CentimetreLabels(double span, double centreLine, std::int32_t resolution)
{
    std::array<std::string, 5> labels;
    for (std::size_t k = 0; k < labels.size(); ++k) {
        const double line = (static_cast<double>(k) - 2.0) * span * 0.25 + centreLine;
        labels[k] = Format("%lld", std::llround(std::max(0.0, CentimetresAt(line, resolution))));
    }
    labels.back() += " cm";
    return labels;
}

std::string CursorLineText(std::int64_t line)
{
    return Format("  %lld  ", static_cast<long long>(line));
}

std::string CursorDistanceText(std::int64_t line, std::int32_t resolution)
{
    return Format(" %4.1f cm ", CentimetresAt(static_cast<double>(line), resolution));
}

std::vector<std::string> StarTestHeaderLines(const StarTestData& data)
{
    std::vector<std::string> lines{"Star Test"};
    const auto add = [&lines](const char* name, const std::string& value) {
        if (!value.empty())
            lines.push_back(Format("%-13s%s", name, value.c_str()));
    };
    const TestFileHeader& header = data.m_header;
    add("Scanner", header.ScannerName().value);
    add("Scanner ID", header.ScannerID().value);
    add("Date", header.Date().value);
    add("Time", header.Time().value);
    add("Sweep", SweepTitle(data));
    add("Result", ApplicationFactorText(data));
    return lines;
}

} // namespace vireo
