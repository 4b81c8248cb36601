#include "viewers/noise/NoiseExport.h"

#include "viewers/controls/LineTable.h"
#include "viewers/noise/NoiseData.h"
#include "viewers/noise/NoiseRuler.h"

namespace vireo {

namespace {

constexpr double kMillimetresPerCentimetre = 10.0;

std::string Heading(const NoiseData& data)
{
    const std::string start = "pixel,position_mm,";
    if (!data.m_bHasColour)
        return start + "gray\r\n";
    return start + (data.m_bHasGray ? "red,green,blue,gray\r\n" : "red,green,blue\r\n");
}

} // namespace

FileStatus ExportNoiseAsCsv(const std::filesystem::path& target, const NoiseData& data)
{
    const NoiseRuler ruler{data.m_iLineLength, data.m_dWidthFactor, PositionUnit::Centimetre};
    const std::vector<ShownColour> planes = data.Planes();
    const auto appendRows = [&](std::string& text, std::int64_t first, std::int64_t count) {
        for (std::int64_t pixel = first; pixel < first + count; ++pixel) {
            AppendNumber(text, pixel);
            text += ',';
            AppendNumber(
                text, kMillimetresPerCentimetre * ruler.PositionOf(static_cast<double>(pixel)));
            for (const ShownColour colour : planes) {
                text += ',';
                AppendNumber(text,
                    static_cast<int>(
                        data.PlaneOf(colour)->trace.samples[static_cast<std::size_t>(pixel)]));
            }
            text += "\r\n";
        }
        return true;
    };
    return WriteLineTable(target, Heading(data), data.m_iLineLength, appendRows);
}

} // namespace vireo
