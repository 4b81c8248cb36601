#include "viewers/oscilloscope/OscilloscopeExport.h"

#include "platform/AtomicFile.h"
#include "testfile/TestFileHeader.h"
#include "viewers/oscilloscope/OscilloscopeData.h"

#include <algorithm>
#include <array>
#include <charconv>
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

namespace {

/// Rows are gathered in pieces of this many pixels before they are written.
constexpr std::int64_t kPiecePixels = 64 * 1024;

template <typename Number>
void AppendNumber(std::string& text, Number number)
{
    constexpr std::size_t kLongestNumber = 32;
    std::array<char, kLongestNumber> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text.append(digits.data(), end);
}

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
    AtomicFile file;
    if (const FileStatus status = file.Open(target); status != FileStatus::Ok)
        return status;
    FileStatus status = file.Write(TableHeading(data));
    const ProfileCameras cameras = data.Cameras();
    const std::int64_t pixels = data.PixelsOfLine(line);
    OscilloscopeData::PlaneBytes planes;
    std::string rows;
    for (std::int64_t first = 0; status == FileStatus::Ok && first < pixels;
         first += kPiecePixels) {
        if (!data.ReadPixels(line, first, std::min(kPiecePixels, pixels - first), planes))
            return FileStatus::Failed;
        rows.clear();
        AppendRows(rows, first, cameras, planes);
        status = file.Write(rows);
    }
    return status == FileStatus::Ok ? file.Commit() : status;
}

} // namespace vireo
