#include "viewers/oscilloscope/OscilloscopeExport.h"

#include "platform/AtomicFile.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

namespace {

/// A plane's column: its heading and its samples.
struct Column {
    std::string_view heading;
    const std::vector<std::uint8_t>* samples;
};

std::vector<Column> ColumnsOf(const ProfileLine& line, bool isGray)
{
    constexpr std::array<std::string_view, 3> kHeadings{"red", "green", "blue"};
    std::vector<Column> columns;
    for (std::size_t i = 0; i < kHeadings.size(); ++i) {
        if (!line.planes[i].samples.empty())
            columns.push_back({isGray ? "gray" : kHeadings[i], &line.planes[i].samples});
    }
    return columns;
}

std::string Heading(const std::vector<Column>& columns)
{
    std::string text = "pixel,camera";
    for (const Column& column : columns)
        text.append(",").append(column.heading);
    return text + "\r\n";
}

std::string Row(
    std::int64_t pixel, const std::vector<Column>& columns, const ProfileCameras& cameras)
{
    std::string text = std::to_string(pixel) + ',';
    if (const auto camera = cameras.CameraAt(pixel))
        text += ProfileCameras::Letter(*camera);
    const auto index = static_cast<std::size_t>(pixel);
    for (const Column& column : columns) {
        text += ',';
        if (index < column.samples->size())
            text += std::to_string((*column.samples)[index]);
    }
    return text + "\r\n";
}

} // namespace

FileStatus ExportLineAsCsv(const std::filesystem::path& target, const ProfileLine& line,
    const ProfileCameras& cameras, bool isGray)
{
    AtomicFile file;
    if (const FileStatus status = file.Open(target); status != FileStatus::Ok)
        return status;
    const std::vector<Column> columns = ColumnsOf(line, isGray);
    FileStatus status = file.Write(Heading(columns));
    for (std::int64_t pixel = 0; status == FileStatus::Ok && pixel < line.Length(); ++pixel)
        status = file.Write(Row(pixel, columns, cameras));
    return status == FileStatus::Ok ? file.Commit() : status;
}

} // namespace vireo
