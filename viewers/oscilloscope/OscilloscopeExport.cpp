#include "viewers/oscilloscope/OscilloscopeExport.h"

#include "testfile/TestFileHeader.h"
#include "viewers/controls/LineTable.h"
#include "viewers/controls/SampleExport.h"
#include "viewers/oscilloscope/OscilloscopeData.h"

#include <string>

namespace vireo {

namespace {

std::string TableHeading(const OscilloscopeData& data)
{
    const std::string start = kPixelRowsHeading;
    if (data.IsInterleaved())
        return start + "red,green,blue\r\n";
    return start + (data.m_iColor == TestFileHeader::kColorGray ? "gray\r\n" : "green\r\n");
}

} // namespace

FileStatus ExportLineAsCsv(
    const std::filesystem::path& target, const OscilloscopeData& data, std::int64_t line)
{
    const ProfileCameras cameras = data.Cameras();
    OscilloscopeData::PlaneBytes planes;
    const auto stored = data.IsInterleaved()
        ? std::span(planes)
        : std::span(planes).subspan(static_cast<std::size_t>(Plane::Green), 1);
    return WriteLineTable(target, TableHeading(data), data.PixelsOfLine(line),
        [&](std::string& text, std::int64_t first, std::int64_t count) {
            if (!data.ReadPixels(line, first, count, planes))
                return false;
            AppendPixelRows<std::uint8_t>(text, first, cameras, stored);
            return true;
        });
}

} // namespace vireo
