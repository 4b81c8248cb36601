#include "viewers/oscilloscope/OscilloscopeExport.h"

#include "testfile/TestFileHeader.h"
#include "viewers/controls/LineTable.h"
#include "viewers/oscilloscope/OscilloscopeData.h"

#include <string>

namespace vireo {

namespace {

std::string TableHeading(const OscilloscopeData& data)
{
    const std::string start = "pixel,position_mm,camera,";
    if (data.IsInterleaved())
        return start + "red,green,blue\r\n";
    return start + (data.m_iColor == TestFileHeader::kColorGray ? "gray\r\n" : "green\r\n");
}

/// Appends the rows of the pixels from `first` on.
void AppendRows(std::string& text, std::int64_t first, const ProfileCameras& cameras,
    const OscilloscopeData::PlaneBytes& planes)
{
    const std::size_t count = planes[static_cast<std::size_t>(Plane::Green)].size();
    for (std::size_t i = 0; i < count; ++i) {
        const std::int64_t pixel = first + static_cast<std::int64_t>(i);
        AppendNumber(text, pixel);
        text += ',';
        if (cameras.pixelPitchMm > 0.0)
            AppendNumber(text, static_cast<double>(pixel) * cameras.pixelPitchMm);
        text += ',';
        if (const auto camera = cameras.CameraAt(pixel))
            text += ProfileCameras::Letter(*camera);
        for (const auto& plane : planes) {
            if (plane.empty())
                continue;
            text += ',';
            AppendNumber(text, static_cast<int>(plane[i]));
        }
        text += "\r\n";
    }
}

} // namespace

FileStatus ExportLineAsCsv(
    const std::filesystem::path& target, const OscilloscopeData& data, std::int64_t line)
{
    const ProfileCameras cameras = data.Cameras();
    OscilloscopeData::PlaneBytes planes;
    return WriteLineTable(target, TableHeading(data), data.PixelsOfLine(line),
        [&](std::string& text, std::int64_t first, std::int64_t count) {
            if (!data.ReadPixels(line, first, count, planes))
                return false;
            AppendRows(text, first, cameras, planes);
            return true;
        });
}

} // namespace vireo
