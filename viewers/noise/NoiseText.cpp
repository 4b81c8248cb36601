#include "viewers/noise/NoiseText.h"

#include "platform/Log.h"
#include "platform/Text.h"
#include "viewers/noise/NoiseData.h"

#include <array>
#include <chrono>

namespace vireo {

std::string AverageText(const NoiseData& data)
{
    return Format("%s:  %d", "Average", data.ShownAverage());
}

int LimitPercent(const NoiseData& data, int defaultPercent)
{
    return data.m_iNoiseLimit.value_or(defaultPercent);
}

std::string LimitText(int percent)
{
    return Format("Limit: %d %%", percent);
}

std::string CheckLimitText(int percent)
{
    return Format(" Limit = %d %%", percent);
}

std::string CheckAverageText(const NoiseData& data)
{
    constexpr int kFullScale = 255;
    return Format("Avg = %d%%", (data.ShownAverage() * 100 + kFullScale / 2) / kFullScale);
}

std::string CursorPositionText(double position)
{
    return Format("Cursor\nPosition:  %.2f", position);
}

std::string NoiseDateToday()
{
    constexpr std::array kDays{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    constexpr std::array kMonths{
        "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const CDateTime now = CDateTime::Now();
    const std::chrono::year_month_day date{std::chrono::year(now.m_iYear),
        std::chrono::month(static_cast<unsigned>(now.m_iMonth)),
        std::chrono::day(static_cast<unsigned>(now.m_iDay))};
    const std::chrono::weekday day{std::chrono::sys_days(date)};
    return Format("%s, %s %02d  %04d", kDays[day.c_encoding()],
        kMonths[static_cast<std::size_t>(now.m_iMonth - 1)], now.m_iDay, now.m_iYear);
}

std::vector<std::string> PrintedHeaderLines(
    const NoiseData& data, int limitPercent, const std::string& date)
{
    std::vector<std::string> lines{"Noise Test", "Scanner Name:   " + data.m_ScannerName};
    if (!data.m_ScannerID.empty())
        lines.push_back("Scanner Number:  " + data.m_ScannerID);
    lines.push_back("Date:           " + date);
    lines.push_back(Format("Limit:          %d %%", limitPercent));
    return lines;
}

std::vector<std::string> TestHeaderLines(const NoiseData& data)
{
    return PrintedHeaderLines(data, LimitPercent(data, NoiseData::kDefaultLimitPercent),
        data.m_Date.empty() ? NoiseDateToday() : data.m_Date);
}

} // namespace vireo
